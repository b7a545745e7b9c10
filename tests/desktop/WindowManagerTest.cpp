#include "harness/WindowManager.h"

#include "harness/ClickClient.h"
#include "harness/Pointer.h"
#include "harness/VirtualDesktop.h"

#include <gtest/gtest.h>

namespace corvane::desktop {

namespace {

/// What holds on every window manager.
class WindowManagers : public testing::TestWithParam<const char *> {
  protected:
    VirtualDesktop desktop_{{.windowManager = windowManagerNamed(GetParam())}};
};

TEST_P(WindowManagers, windowsComeUpMoveAndGetClicks) {
    ClickClient client(desktop_);
    const int window = client.open();
    client.move(window, {300, 200});
    const Pointer pointer(desktop_.connection());
    pointer.moveTo({350, 260});
    pointer.click();
    EXPECT_TRUE(client.waitForClicks(1));
}

INSTANTIATE_TEST_SUITE_P(All, WindowManagers,
                         testing::Values("openbox", "xfwm4", "metacity", "marco", "kwin_x11"),
                         [](const auto &each) { return std::string(each.param); });

} // namespace

} // namespace corvane::desktop
