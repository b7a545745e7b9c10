#include "WaylandTest.h"
#include "harness/servers/KWinDesktop.h"

namespace corvane::desktop {

namespace {

class KWinTest : public WaylandTest {
  protected:
    KWinTest() : WaylandTest(std::make_unique<KWinDesktop>(KWinDesktop::Permission::missing)) {}
};

TEST_F(KWinTest, TheFirstStartGetsThePermissionToClick) {
    const auto corvane = start({.clickRate = 10});
    desktop_.pressHotKey();
    EXPECT_TRUE(client_.waitForClicks(3)) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
