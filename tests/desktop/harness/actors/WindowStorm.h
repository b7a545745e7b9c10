#pragma once

#include <atomic>
#include <string>
#include <thread>

namespace corvane::desktop {

/// Another program that opens windows and destroys them again as fast as it can.
class WindowStorm {
  public:
    /// With or without the window manager having a hand in it.
    enum class Kind { managed, unmanaged };

    WindowStorm(const std::string &display, Kind kind);
    ~WindowStorm();
    WindowStorm(const WindowStorm &) = delete;
    WindowStorm &operator=(const WindowStorm &) = delete;

    /// How many windows have come and gone.
    int windowCount() const { return windowCount_; }

  private:
    void rage(const std::string &display, Kind kind);

    std::atomic<bool> isOver_ = false;
    std::atomic<int> windowCount_ = 0;
    std::thread thread_;
};

} // namespace corvane::desktop
