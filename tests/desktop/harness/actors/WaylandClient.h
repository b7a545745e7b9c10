#pragma once

#include "ChildProcess.h"
#include "Pointer.h"
#include "TextFile.h"
#include "servers/WaylandDesktop.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace corvane::desktop {

/// What the pointer does in a window of a `WaylandClient`.
struct PointerEvent {
    enum class Kind { enter, motion, press, release };

    Kind kind{};
    /// The number the test gave the window; 0 for none.
    int window = 0;
    /// Where the pointer was, from the window's top left corner.
    Position position;
    /// Of a press or a release: milliseconds of the compositor's clock when it happened.
    std::int64_t milliseconds = 0;
};

/// Another program of a Wayland session with windows that note what the pointer does in them; and
/// the hand on the user's mouse.
class WaylandClient {
  public:
    struct Window {
        std::string title = "Target";
        std::string application = "Target";
        Position position{100, 100};
        int width = 400;
        int height = 300;
    };

    explicit WaylandClient(const WaylandDesktop &desktop);

    /// Opens a window and waits until it is in its place; gives the window's number.
    int open(const Window &window);
    void retitle(int window, const std::string &title);
    void close(int window);

    /// Moves the user's pointer.
    void moveTo(Position position);
    void press();
    void release();

    /// Every event so far, in order.
    const std::vector<PointerEvent> &events() const;
    int count(PointerEvent::Kind kind) const;
    int pressCount() const { return count(PointerEvent::Kind::press); }
    int releaseCount() const { return count(PointerEvent::Kind::release); }

    /// Waits until there are that many presses and as many releases; false when time runs out.
    bool waitForClicks(int count, std::chrono::milliseconds limit = timeLimit) const;

    pid_t pid() const { return program_->pid(); }

  private:
    void request(const std::string &command);
    void listen() const;

    const WaylandDesktop &desktop_;
    std::unique_ptr<ChildProcess> program_;
    mutable GrowingFile output_;
    mutable std::vector<PointerEvent> events_;
    mutable std::set<int> shown_;
    mutable int answers_ = 0;
    int windowCount_ = 0;
};

} // namespace corvane::desktop
