#pragma once

#include "harness/Settings.h"
#include "harness/WaitUntil.h"
#include "harness/actors/CorvaneProcess.h"
#include "harness/actors/WaylandClient.h"
#include "harness/servers/WaylandDesktop.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace corvane::desktop {

/// A Wayland desktop with a window of another program at 300, 250, the pointer in its middle.
class WaylandTest : public testing::Test {
  protected:
    static constexpr Position corner{300, 250};
    static constexpr Position target{500, 400};

    explicit WaylandTest(const std::string &compositorSettings = {})
        : desktop_(compositorSettings) {
        client_.moveTo(target);
    }

    /// Starts the program with these settings and waits until it is ready.
    std::unique_ptr<CorvaneProcess> start(const Settings &settings);

    /// Waits until a run clicks.
    bool waitForMoreClicks(int count);

    /// Whether nothing is clicked for a while, many times the interval of the fastest run.
    bool staysQuiet();

    WaylandDesktop desktop_;
    WaylandClient client_{desktop_};
    int window_ = client_.open({.position = corner});
};

} // namespace corvane::desktop
