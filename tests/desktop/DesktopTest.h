#pragma once

#include "harness/Settings.h"
#include "harness/WaitUntil.h"
#include "harness/actors/ClickClient.h"
#include "harness/actors/CorvaneProcess.h"
#include "harness/actors/Keyboard.h"
#include "harness/actors/Pointer.h"
#include "harness/servers/VirtualDesktop.h"

#include <gtest/gtest.h>

#include <memory>

namespace corvane::desktop {

/// A desktop with a window of another program, the pointer over it, and hands on the mouse and the
/// keyboard.
class DesktopTest : public testing::Test {
  protected:
    /// In the middle of the window.
    static constexpr Position target{500, 400};

    explicit DesktopTest(const VirtualDesktop::Options &options = {}) : desktop_(options) {
        pointer_.moveTo(target);
    }

    /// Starts the program with these settings and waits until it is ready.
    std::unique_ptr<CorvaneProcess> start(const Settings &settings,
                                          CorvaneProcess::Options options = {});

    /// Puts a window over the other one that the window manager has no hand in. A window manager
    /// sees every click on its windows first, and while it is slow to pass one on the server drops
    /// the next: where every click is counted, it must be kept out.
    void keepWindowManagerOut();

    /// Waits for a click of the test's own in the window: whatever was clicked before has arrived
    /// then too.
    void waitForEverything();

    /// Presses of the left button that have arrived.
    int clickCount() const;

    /// Whether nothing more is clicked for a while, many times the interval of the fastest run.
    bool staysQuiet();

    /// Waits until a run clicks.
    bool waitForMoreClicks(int count);

    /// Expects that the button is released, that every press has its release and that the last line
    /// of the log counts the clicks.
    void expectRunEnded(const CorvaneProcess &corvane);

    /// Waits until an alert of the program has the keyboard, presses the key and waits until the
    /// alert is gone.
    bool answerAlert(xcb_keysym_t key);

    /// The program's alert or another window of its own; XCB_WINDOW_NONE without one.
    xcb_window_t alert() const;

    /// Whether the program shows its menu.
    bool hasMenu() const;

    VirtualDesktop desktop_;
    ClickClient client_{desktop_};
    int window_ = client_.open({.x = 300, .y = 250});
    Pointer pointer_{desktop_.connection()};
    Keyboard keyboard_{desktop_.connection()};

  private:
    int ownClicks_ = 0;
};

} // namespace corvane::desktop
