#pragma once

#include <atomic>
#include <string>
#include <thread>

namespace corvane::desktop {

/// Another program that opens windows and destroys them again as fast as it can.
class WindowStorm {
  public:
    explicit WindowStorm(const std::string &display);
    ~WindowStorm();
    WindowStorm(const WindowStorm &) = delete;
    WindowStorm &operator=(const WindowStorm &) = delete;

    /// How many windows have come and gone.
    int windowCount() const { return windowCount_; }

  private:
    void rage(const std::string &display);

    std::atomic<bool> isOver_ = false;
    std::atomic<int> windowCount_ = 0;
    std::thread thread_;
};

} // namespace corvane::desktop
