#pragma once

#include "harness/Settings.h"
#include "harness/WaitUntil.h"
#include "harness/actors/CorvaneProcess.h"
#include "harness/actors/WaylandClient.h"
#include "harness/servers/Compositors.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace corvane::desktop {

/// A Wayland desktop with a window of another program at 300, 250, the pointer in its middle.
class WaylandTest : public testing::Test {
  protected:
    static constexpr Position corner{300, 250};
    static constexpr Position target{500, 400};

    explicit WaylandTest(std::unique_ptr<WaylandDesktop> desktop)
        : ownDesktop_(std::move(desktop)) {
        client_.moveTo(target);
    }

    /// Starts the program with these settings and waits until it is ready.
    std::unique_ptr<CorvaneProcess> start(const Settings &settings);

    /// Waits until a run clicks.
    bool waitForMoreClicks(int count);

    /// Whether nothing is clicked for a while, many times the interval of the fastest run.
    bool staysQuiet();

    /// Moves the pointer there and waits for clicks.
    bool clicksAt(Position position);

    /// A click for which the pointer was read before it moved may still be under way.
    bool isQuietAt(Position position);

    /// Has the running program show the picker, and waits until it dims a window on each monitor:
    /// where there is none, a compositor may show black, which cannot get darker.
    void openPicker();

    void drag(Position from, Position to);

    const std::unique_ptr<WaylandDesktop> ownDesktop_;
    WaylandDesktop &desktop_ = *ownDesktop_;
    WaylandClient client_{desktop_};
    int window_ = client_.open({.position = corner});
};

/// A test that passes on every compositor.
class EveryCompositorTest : public WaylandTest, public testing::WithParamInterface<std::string> {
  protected:
    EveryCompositorTest() : WaylandTest(makeWaylandDesktop(GetParam())) {}
};

#define CORVANE_COMPOSITORS(Suite, names)                                                          \
    INSTANTIATE_TEST_SUITE_P(, Suite, testing::ValuesIn(names),                                    \
                             [](const auto &test) { return test.param; })

#define CORVANE_EVERY_COMPOSITOR(Suite) CORVANE_COMPOSITORS(Suite, compositors)

} // namespace corvane::desktop
