#include "platform/x11/screens/Screens.h"

#include "WindowSystemTest.h"

namespace corvane::contract {

namespace {

using platform::Screen;

class ScreensTest : public WindowSystemTest {
  protected:
    ScreensTest()
        : WindowSystemTest(
              {.width = 1600, .height = 900, .windowManager = desktop::WindowManager::none}) {}

    /// `geometry` as xrandr has it: pixels/millimetres.
    void addMonitor(const std::string &name, const std::string &geometry,
                    const std::string &output = "none") const {
        desktop_.run({"xrandr", "--setmonitor", name, geometry, output});
    }

    bool turnUntilScreensAre(const std::vector<Screen> &expected) {
        return turnUntil([&] { return screens_.screens() == expected; });
    }

    x11::Screens screens_{events_};
};

TEST_F(ScreensTest, OneScreenStandsAtTheOrigin) {
    EXPECT_EQ(screens_.screens(), (std::vector<Screen>{{{0, 0, 1600, 900}}}));
}

TEST_F(ScreensTest, ThePrimaryMonitorComesFirstAndIsWhatHeightsAreCountedFrom) {
    addMonitor("left", "600/100x500/100+0+100", "screen");
    addMonitor("*right", "1000/100x900/100+600+0");
    EXPECT_TRUE(turnUntilScreensAre({{{600, 0, 1000, 900}}, {{0, 300, 600, 500}}}));
    EXPECT_EQ(screens_.toRoot({0, 300, 600, 500}), (Rectangle{0, 100, 600, 500}));
    EXPECT_EQ(screens_.toScreenSpace({10, 20}), (Point{10, 880}));
}

TEST_F(ScreensTest, ThePrimaryMonitorNeedNotStandAtTheTop) {
    addMonitor("*main", "800/100x600/100+0+300", "screen");
    addMonitor("above", "800/100x300/100+0+0");
    EXPECT_TRUE(turnUntilScreensAre({{{0, -300, 800, 600}}, {{0, 300, 800, 300}}}));
}

TEST_F(ScreensTest, MonitorsThatShowTheSameAreOneScreen) {
    addMonitor("one", "800/100x900/100+0+0", "screen");
    addMonitor("copy", "800/100x900/100+0+0");
    addMonitor("other", "800/100x900/100+800+0");
    EXPECT_TRUE(turnUntilScreensAre({{{0, 0, 800, 900}}, {{800, 0, 800, 900}}}));
}

TEST_F(ScreensTest, AMonitorMayGoAway) {
    addMonitor("left", "800/100x900/100+0+0", "screen");
    addMonitor("right", "800/100x900/100+800+0");
    ASSERT_TRUE(turnUntil([this] { return screens_.screens().size() == 2; }));
    desktop_.run({"xrandr", "--delmonitor", "right"});
    EXPECT_TRUE(turnUntilScreensAre({{{0, 0, 800, 900}}}));
}

TEST_F(ScreensTest, WithoutAMonitorInUseThereIsNoScreen) {
    desktop_.run({"xrandr", "--fb", "1600x900", "--output", "screen", "--off"});
    ASSERT_TRUE(turnUntilScreensAre({}));
    EXPECT_EQ(screens_.toRoot({1, 2, 3, 4}), (Rectangle{1, 2, 3, 4}));
    EXPECT_EQ(screens_.toScreenSpace({1, 2}), (Point{1, 2}));
    desktop_.run({"xrandr", "--output", "screen", "--auto"});
    EXPECT_TRUE(turnUntilScreensAre({{{0, 0, 1600, 900}}}));
}

class ScreensWithoutMonitorsTest : public WindowSystemTest {
  protected:
    ScreensWithoutMonitorsTest()
        : WindowSystemTest({.width = 1024,
                            .height = 700,
                            .windowManager = desktop::WindowManager::none,
                            .withoutExtensions = {"RANDR"}}) {}
};

TEST_F(ScreensWithoutMonitorsTest, TheWholeDesktopIsTheScreen) {
    const x11::Screens screens(events_);
    EXPECT_EQ(screens.screens(), (std::vector<Screen>{{{0, 0, 1024, 700}}}));
    EXPECT_EQ(screens.toScreenSpace({0, 0}), (Point{0, 700}));
}

} // namespace

} // namespace corvane::contract
