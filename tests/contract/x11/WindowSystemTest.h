#pragma once

#include "EnvironmentVariable.h"
#include "EventLoop.h"
#include "platform/x11/connection/XcbEvents.h"
#include "servers/VirtualDesktop.h"
#include "servers/WindowManager.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::contract {

/// A desktop of its own, and a back end's connection to it.
class WindowSystemTest : public testing::Test {
  protected:
    explicit WindowSystemTest(const desktop::VirtualDesktop::Options &options)
        : desktop_(options) {}

    desktop::VirtualDesktop desktop_;
    EnvironmentVariable display_{"DISPLAY", desktop_.display()};
    x11::XcbEvents events_{x11::XcbConnection::open().value(),
                           [] { ADD_FAILURE() << "the server is gone"; }};
};

/// The same under each window manager; its name is the parameter.
class EveryWindowManagerTest : public WindowSystemTest,
                               public testing::WithParamInterface<const char *> {
  protected:
    EveryWindowManagerTest()
        : WindowSystemTest({.windowManager = desktop::windowManagerNamed(GetParam())}) {}
};

inline const auto windowManagers = testing::Values("openbox", "xfwm4");

inline std::string windowManagerName(const testing::TestParamInfo<const char *> &each) {
    return each.param;
}

} // namespace corvane::contract
