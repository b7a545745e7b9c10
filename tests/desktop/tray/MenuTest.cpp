#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/actors/StatusPanel.h"

#include <gmock/gmock.h>

#include <csignal>

namespace corvane::desktop {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const MenuLine separator{.isSeparator = true};

MenuLine disabled(const std::string &title) { return {.isEnabled = false, .title = title}; }

/// What a panel of the desktop shows and what choosing from it does.
class MenuTest : public DesktopTest {
  protected:
    std::unique_ptr<CorvaneProcess> startOnPanel(const Settings &settings) {
        auto corvane = start(settings);
        EXPECT_TRUE(panel_.waitForItem()) << corvane->story();
        return corvane;
    }

    bool waitForLine(const std::string &title) {
        return waitUntil([&] { return panel_.line(title).has_value(); });
    }

    std::string savedSettings() const { return readFile(settingsFile(desktop_)); }

    StatusPanel panel_{desktop_};
};

TEST_F(MenuTest, WhileIdle) {
    const auto corvane = startOnPanel({.clickRate = 10, .maxClicks = 50});
    ASSERT_TRUE(waitForLine("Rate: 10/s — 50x"));
    EXPECT_THAT(panel_.menu(),
                ElementsAre(disabled("Idle"), separator, MenuLine{.title = "Start"}, separator,
                            MenuLine{.isChecked = true, .title = "Free Cursor"},
                            MenuLine{.title = "Defined Zone"}, separator,
                            disabled("Rate: 10/s — 50x"), separator, MenuLine{.title = "Profiles"},
                            MenuLine{.depth = 1, .isEnabled = false, .title = "No profiles"},
                            MenuLine{.depth = 1, .isSeparator = true},
                            MenuLine{.depth = 1, .title = "Save current config..."}, separator,
                            MenuLine{.title = "Settings..."}, MenuLine{.title = "Quit Corvane"}));
}

TEST_F(MenuTest, WhileRunningOnlyStopAndQuitCanBeChosen) {
    const auto corvane =
        startOnPanel({.clickMode = "zone", .clickRate = 50, .zone = Area{0, 0, 300, 200}});
    ASSERT_TRUE(panel_.choose("Start"));
    ASSERT_TRUE(waitForLine("Stop"));
    EXPECT_THAT(
        panel_.menu(),
        ElementsAre(
            disabled("Running"), separator, MenuLine{.title = "Stop"}, separator,
            disabled("Free Cursor"),
            MenuLine{.isEnabled = false, .isChecked = true, .title = "Defined Zone (300×200)"},
            disabled("Define zone..."), separator, disabled("Rate: 50/s — unlimited"), separator,
            MenuLine{.title = "Profiles"},
            MenuLine{.depth = 1, .isEnabled = false, .title = "No profiles"},
            MenuLine{.depth = 1, .isSeparator = true},
            MenuLine{.depth = 1, .isEnabled = false, .title = "Save current config..."}, separator,
            disabled("Settings..."), MenuLine{.title = "Quit Corvane"}));
}

TEST_F(MenuTest, StartsAndStopsARunAndCountsItsClicks) {
    const auto corvane = startOnPanel({.clickRate = 50});
    ASSERT_TRUE(panel_.choose("Start"));
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    EXPECT_TRUE(waitUntil([this] {
        const std::string title = panel_.menu().front().title;
        return title.starts_with("Running (") && title.ends_with(" clicks)");
    }));
    ASSERT_TRUE(panel_.choose("Stop"));
    EXPECT_TRUE(waitForLine("Idle"));
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
}

TEST_F(MenuTest, AModeIsSaved) {
    const auto corvane = startOnPanel({.clickRate = 20});
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    EXPECT_TRUE(waitForLine("Define zone..."));
    EXPECT_TRUE(waitUntil(
        [this] { return savedSettings().find("\"clickMode\" : \"zone\"") != std::string::npos; }));
    ASSERT_TRUE(panel_.choose("Free Cursor"));
    EXPECT_TRUE(waitUntil([this] {
        return savedSettings().find("\"clickMode\" : \"cursor\"") != std::string::npos;
    }));
}

TEST_F(MenuTest, AChangeJustBeforeTheEndIsSaved) {
    const auto corvane = startOnPanel({.clickRate = 20});
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    ASSERT_TRUE(panel_.choose("Quit Corvane"));
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_THAT(savedSettings(), HasSubstr("\"clickMode\" : \"zone\""));
}

TEST_F(MenuTest, AChangeJustBeforeASignalIsSaved) {
    const auto corvane = startOnPanel({.clickRate = 20});
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    corvane->process().signal(SIGTERM);
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_THAT(savedSettings(), HasSubstr("\"clickMode\" : \"zone\""));
}

TEST_F(MenuTest, QuittingEndsARun) {
    const auto corvane = startOnPanel({.clickRate = 50});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    ASSERT_TRUE(panel_.choose("Quit Corvane"));
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_FALSE(pointer_.isLeftButtonDown());
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

TEST_F(MenuTest, ProfilesCanBeChosen) {
    writeFile(profilesFile(desktop_),
              R"({"profiles": [
  {"id": "0B0C6C2E-6AF5-4E6B-9D47-3B4D3C2A1F00", "name": "Fast & loose", "clickMode": "cursor",
   "clickRate": 25, "timeUnit": "s", "maxClicks": 4},
  {"id": "1B0C6C2E-6AF5-4E6B-9D47-3B4D3C2A1F00", "name": "Slow", "clickMode": "cursor",
   "clickRate": 2, "timeUnit": "h", "maxClicks": 0}]})");
    const auto corvane = startOnPanel({.clickRate = 20});
    ASSERT_TRUE(waitForLine("Slow"));
    ASSERT_TRUE(panel_.choose("Fast & loose"));
    EXPECT_TRUE(waitForLine("Rate: 25/s — 4x"));
    EXPECT_EQ(panel_.line("Fast & loose"),
              (MenuLine{.depth = 1, .isChecked = true, .title = "Fast & loose"}));
    EXPECT_EQ(panel_.line("Slow"), (MenuLine{.depth = 1, .title = "Slow"}));
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLog("Clicker finished after 4 clicks (limit reached)"))
        << corvane->story();
}

/// A desktop whose server has no test extension: nothing can be clicked there.
class NotGrantedTest : public testing::Test {
  protected:
    VirtualDesktop desktop_{{.withoutExtensions = {"XTEST"}}};
    StatusPanel panel_{desktop_};
};

TEST_F(NotGrantedTest, OffersTheWayOutAndNoStart) {
    CorvaneProcess corvane(desktop_);
    ASSERT_TRUE(corvane.waitUntilReady()) << corvane.story();
    ASSERT_TRUE(panel_.waitForItem());
    EXPECT_EQ(corvane.logCount("Initial accessibility: false"), 1) << corvane.story();
    ASSERT_TRUE(panel_.line("Open Accessibility Settings...").has_value());
    EXPECT_EQ(panel_.line("Start"), disabled("Start"));
    EXPECT_EQ(panel_.menu().front(), disabled("Idle"));
}

} // namespace

} // namespace corvane::desktop
