#pragma once

#include "ChildProcess.h"
#include "Pointer.h"
#include "TextFile.h"
#include "servers/VirtualDesktop.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A mouse button going down or up in a window of a `ClickClient`.
struct ButtonEvent {
    bool isPress = false;
    /// The number the test gave the window.
    int window = 0;
    int button = 0;
    /// Modifiers and buttons just before the event, as in the X event.
    int state = 0;
    /// Where the pointer was, on the root window.
    Position position;
    /// The server's clock.
    std::int64_t milliseconds = 0;
    /// The monotonic clock when the program saw it.
    std::int64_t nanoseconds = 0;
};

/// Another program with windows that note every click they get.
class ClickClient {
  public:
    /// A window as the program opens it, by its own numbers: the window manager may change them.
    struct Window {
        std::string title = "Target";
        /// The class part of WM_CLASS.
        std::string className = "Target";
        /// The client area, in pixels.
        int x = 100;
        int y = 100;
        int width = 400;
        int height = 300;
        /// What the window says of its process: 0 for nothing, -1 for the truth.
        int pid = -1;
        bool isFullscreen = false;
        /// Whether the window manager is kept out.
        bool isOverride = false;
        /// The width of the shadow the program draws around its own frame; 0 for none.
        int ownShadow = 0;
        /// What kind it says it is, such as "_NET_WM_WINDOW_TYPE_DOCK"; empty for nothing.
        std::string type{};
    };

    explicit ClickClient(const VirtualDesktop &desktop);

    /// Opens a window and waits until it is on screen; gives the window's number.
    int open(const Window &window);
    int open() { return open(Window{}); }

    xcb_window_t windowId(int window) const;

    /// Moves the window and waits until its client area is there.
    void move(int window, Position position);
    void retitle(int window, const std::string &title);
    void close(int window);

    /// Where the client area is on the root window.
    Position position(int window) const;

    /// Every event so far, in order.
    const std::vector<ButtonEvent> &events() const;
    int pressCount() const;
    int releaseCount() const;

    /// Waits until there are that many presses and as many releases; false when time runs out.
    bool waitForClicks(int count, std::chrono::milliseconds limit = timeLimit) const;

    pid_t pid() const { return program_->pid(); }

  private:
    using Fields = std::vector<std::string>;

    bool isOnScreen(int window) const;
    void send(const std::string &line) const;
    /// Takes in what the program has said since the last time.
    void listen() const;
    const std::vector<Fields> &reports(const std::string &kind) const;
    std::optional<Fields> lastReport(const std::string &kind, int window) const;

    const VirtualDesktop &desktop_;
    std::unique_ptr<ChildProcess> program_;
    mutable GrowingFile output_;
    mutable std::vector<ButtonEvent> events_;
    mutable int pressCount_ = 0;
    /// What it said beside the events, by kind.
    mutable std::map<std::string, std::vector<Fields>> reports_;
    int windowCount_ = 0;
};

} // namespace corvane::desktop
