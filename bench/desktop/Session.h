#pragma once

#include "Clicks.h"
#include "harness/Settings.h"
#include "harness/actors/ClickClient.h"
#include "harness/actors/CorvaneProcess.h"
#include "harness/actors/Keyboard.h"
#include "harness/actors/Pointer.h"
#include "harness/actors/StatusPanel.h"
#include "harness/servers/VirtualDesktop.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::bench {

/// A desktop with a panel that shows status items, and a window of another program that notes the
/// clicks it gets, the pointer over it. The window manager has no hand in that window: it would see
/// every click first.
class Session {
  public:
    struct Options {
        bool hasCompositor = false;
    };

    explicit Session(const Options &options);
    Session() : Session(Options{}) {}

    desktop::VirtualDesktop &desktop() { return desktop_; }
    desktop::ClickClient &client() { return client_; }
    const desktop::Pointer &pointer() const { return pointer_; }
    const desktop::Keyboard &keyboard() const { return keyboard_; }
    const desktop::StatusPanel &panel() const { return panel_; }

    /// Starts the program with these settings and waits until it is ready and has come to rest.
    /// `launcher` runs the program, such as a profiler with its arguments.
    std::unique_ptr<desktop::CorvaneProcess> start(const desktop::Settings &settings,
                                                   const std::vector<std::string> &launcher = {});

    /// Waits until the window has got that many clicks in all; throws when they do not come.
    void awaitClicks(int count);

    /// What has been clicked with the left button since this was asked last.
    Clicks newClicks();

    static constexpr desktop::Position target{500, 400};
    /// A zone around the pointer.
    static constexpr desktop::Area zone{400, 300, 200, 200};

  private:
    desktop::VirtualDesktop desktop_;
    desktop::ClickClient client_{desktop_};
    desktop::Pointer pointer_{desktop_.connection()};
    desktop::Keyboard keyboard_{desktop_.connection()};
    desktop::StatusPanel panel_{desktop_};
    std::size_t knownEvents_ = 0;
};

/// Waits for the end of a run with a limit, without a look at it before `leastTime` has passed, and
/// for the same time again.
void awaitFinish(desktop::CorvaneProcess &corvane, std::chrono::milliseconds leastTime);

/// Waits until the program has logged `count` lines that begin so; throws when it ends before.
void requireLog(desktop::CorvaneProcess &corvane, std::string_view beginning, int count = 1,
                std::chrono::milliseconds limit = desktop::timeLimit);

} // namespace corvane::bench
