#include "SettingsDesktopTest.h"
#include "harness/TextFile.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

#include <algorithm>

namespace corvane::desktop {

namespace {

using testing::ElementsAreArray;

/// In the window of the other program.
constexpr Area zone{420, 330, 60, 40};

/// The tab "General" of the real program.
class GeneralTabOnDesktopTest : public SettingsDesktopTest {
  protected:
    /// Where the zone lies in the frame of the other program's window.
    Position zoneInFrame() const {
        const Position client = client_.position(window_);
        const auto frame =
            desktop_.connection().properties(client_.windowId(window_), "_NET_FRAME_EXTENTS");
        return {zone.x - client.x + static_cast<int>(frame.at(0)),
                zone.y - client.y + static_cast<int>(frame.at(2))};
    }

    std::filesystem::path autostartFolder() const { return desktop_.home() / ".config/autostart"; }
    std::filesystem::path loginEntry() const { return autostartFolder() / "corvane.desktop"; }
};

const Settings anchored{
    .clickMode = "zone",
    .clickRate = 20,
    .zone = zone,
    .anchor =
        Settings::Anchor{.application = "Target", .title = "Target", .relative = {10, 20, 60, 40}}};

TEST_F(GeneralTabOnDesktopTest, IsReadInItsOrder) {
    launch(anchored);
    open();
    const std::vector<std::string> expected = {"frame 'General'",
                                               "page tab 'General' selected",
                                               "page tab 'Profiles'",
                                               "page tab 'About'",
                                               "label 'Mode'",
                                               "panel 'Mode'",
                                               "radio button 'Free Cursor'",
                                               "radio button 'Defined Zone' checked",
                                               "label 'Zone: 420, 330 — 60×40'",
                                               "push button 'Define zone...'",
                                               "check box 'Relative to a window' checked",
                                               "label 'Anchored to Target'",
                                               "label '(Target)'",
                                               "label 'Rate'",
                                               "text 'Rate' = '20'",
                                               "spin box 'Rate' = 20",
                                               "label 'clicks per'",
                                               "combo box 'second' for 'clicks per'",
                                               "label '= 1 click every 0.05s'",
                                               "label 'Limit'",
                                               "text 'Limit' = '0'",
                                               "spin box 'Limit' = 0",
                                               "label 'clicks'",
                                               "label '(unlimited)'",
                                               "check box 'Start at Login'",
                                               "push button 'OK'"};
    EXPECT_EQ(said("General", expected), expected);
}

TEST_F(GeneralTabOnDesktopTest, EverySettingIsEditedSavedAndKept) {
    launch({.clickRate = 20, .zone = zone});
    open();
    ASSERT_TRUE(tabTo("radio button 'Free Cursor' checked"));
    strike(XK_Down);
    ASSERT_TRUE(waitForFocus("radio button 'Defined Zone' checked"));
    ASSERT_TRUE(tabTo("check box 'Relative to a window'"));
    strike(XK_space);
    ASSERT_TRUE(waitForFocus("check box 'Relative to a window' checked"));
    ASSERT_TRUE(tabTo("text 'Rate' = '20'"));
    type("35");
    ASSERT_TRUE(waitForFocus("text 'Rate' = '35'"));
    ASSERT_TRUE(tabTo("spin box 'Rate' = 35"));
    strike(XK_Up);
    ASSERT_TRUE(waitForFocus("spin box 'Rate' = 36"));
    ASSERT_TRUE(tabTo("combo box 'second' for 'clicks per'"));
    strike(XK_Down, 2);
    ASSERT_TRUE(waitForFocus("combo box 'hour' for 'clicks per'"));
    ASSERT_TRUE(tabTo("text 'Limit' = '0'"));
    type("8");
    ASSERT_TRUE(tabTo("spin box 'Limit' = 8"));
    strike(XK_Down);
    ASSERT_TRUE(waitForFocus("spin box 'Limit' = 7"));
    ASSERT_TRUE(tabTo("check box 'Start at Login'"));
    strike(XK_space);
    ASSERT_TRUE(waitForFocus("check box 'Start at Login' checked"));
    EXPECT_TRUE(std::filesystem::exists(loginEntry()));
    const std::vector<std::string> edited = reader_.window("General");
    EXPECT_EQ(savedSettings(), (Settings{.clickRate = 20, .zone = zone}.text()));

    strike(XK_Return);
    EXPECT_TRUE(waitUntilClosed());
    const Position inFrame = zoneInFrame();
    const std::string expected = "{\n"
                                 "  \"clickMode\" : \"zone\",\n"
                                 "  \"clickRate\" : 36,\n"
                                 "  \"maxClicks\" : 7,\n"
                                 "  \"timeUnit\" : \"h\",\n"
                                 "  \"windowAnchor\" : {\n"
                                 "    \"bundleID\" : \"Target\",\n"
                                 "    \"relativeRect\" : {\n"
                                 "      \"height\" : 40,\n"
                                 "      \"width\" : 60,\n"
                                 "      \"x\" : " +
                                 std::to_string(inFrame.x) +
                                 ",\n"
                                 "      \"y\" : " +
                                 std::to_string(inFrame.y) +
                                 "\n"
                                 "    },\n"
                                 "    \"windowTitle\" : \"Target\"\n"
                                 "  },\n"
                                 "  \"zoneRect\" : {\n"
                                 "    \"height\" : 40,\n"
                                 "    \"width\" : 60,\n"
                                 "    \"x\" : 420,\n"
                                 "    \"y\" : 330\n"
                                 "  }\n"
                                 "}";
    EXPECT_EQ(savedSettings(expected), expected);
    EXPECT_TRUE(waitUntil([this] { return panel_.line("Rate: 36/h — 7x").has_value(); }));
    EXPECT_TRUE(panel_.line("Defined Zone (60×40) (Target)").has_value());

    quit();
    EXPECT_EQ(savedSettings(), expected);
    corvane_ = std::make_unique<CorvaneProcess>(desktop_);
    ASSERT_TRUE(corvane_->waitUntilReady()) << corvane_->story();
    open();
    EXPECT_THAT(said("General", edited), ElementsAreArray(edited));
}

TEST_F(GeneralTabOnDesktopTest, EditsAreDroppedWhenTheWindowOrTheTabIsLeft) {
    launch({.clickRate = 20});
    open();
    ASSERT_TRUE(tabTo("text 'Rate' = '20'"));
    type("35");
    ASSERT_TRUE(waitForFocus("text 'Rate' = '35'"));
    strike(XK_Escape);
    ASSERT_TRUE(waitUntilClosed());
    openTab("About");
    strike(XK_Left, 2);
    ASSERT_TRUE(waitForActive("General"));
    ASSERT_TRUE(waitForFocus("page tab 'General' selected"));
    ASSERT_TRUE(tabTo("text 'Rate' = '20'"));
    type("36");
    ASSERT_TRUE(tabTo("page tab 'General' selected"));
    strike(XK_Right);
    ASSERT_TRUE(waitForActive("Profiles"));
    strike(XK_Left);
    ASSERT_TRUE(waitForActive("General"));
    ASSERT_TRUE(tabTo("push button 'OK'"));
    strike(XK_Return);
    EXPECT_TRUE(waitUntilClosed());
    const std::string expected = "{\n"
                                 "  \"clickMode\" : \"cursor\",\n"
                                 "  \"clickRate\" : 20,\n"
                                 "  \"maxClicks\" : 0,\n"
                                 "  \"timeUnit\" : \"s\"\n"
                                 "}";
    EXPECT_EQ(savedSettings(expected), expected);
}

TEST_F(GeneralTabOnDesktopTest, APickHidesTheWindowAndBringsANewOneWithItsZone) {
    launch({.clickMode = "zone"});
    open();
    const xcb_window_t former = active("General").value().id;
    ASSERT_TRUE(says("General", "label 'No zone defined'"));
    ASSERT_TRUE(tabTo("push button 'Define zone...'"));
    strike(XK_space);
    ASSERT_TRUE(waitUntil([this] {
        return std::ranges::any_of(corvaneWindows(desktop_.connection()),
                                   [](const auto &window) { return window.isOverride; });
    })) << corvane_->story();
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::none_of(corvaneWindows(desktop_.connection()),
                                    [&](const auto &window) { return window.id == former; });
    }));
    pointer_.drag({20, 30}, {180, 130});
    ASSERT_TRUE(waitForActive("General")) << corvane_->story();
    EXPECT_NE(active("General").value().id, former);
    EXPECT_TRUE(says("General", "label 'Zone: 20, 30 — 160×100'"));
    const std::string expected = "{\n"
                                 "  \"clickMode\" : \"zone\",\n"
                                 "  \"clickRate\" : 20,\n"
                                 "  \"maxClicks\" : 0,\n"
                                 "  \"timeUnit\" : \"s\",\n"
                                 "  \"zoneRect\" : {\n"
                                 "    \"height\" : 100,\n"
                                 "    \"width\" : 160,\n"
                                 "    \"x\" : 20,\n"
                                 "    \"y\" : 30\n"
                                 "  }\n"
                                 "}";
    EXPECT_EQ(savedSettings(expected), expected);
}

TEST_F(GeneralTabOnDesktopTest, StartingAtLoginFollowsTheEntryOfTheDesktop) {
    writeFile(loginEntry(),
              "[Desktop Entry]\nType=Application\nName=Corvane\nExec=/bin/sh\nHidden=true\n");
    launch({});
    open();
    ASSERT_TRUE(tabTo("check box 'Start at Login'"));
    strike(XK_space);
    ASSERT_TRUE(waitForFocus("check box 'Start at Login' checked"));
    EXPECT_EQ(readFile(loginEntry()).find("Hidden"), std::string::npos);
    const auto program = std::filesystem::read_symlink(
        "/proc/" + std::to_string(corvane_->process().pid()) + "/exe");
    EXPECT_NE(readFile(loginEntry()).find("\nExec=\"" + program.string() + "\" --at-login\n"),
              std::string::npos);
    strike(XK_space);
    ASSERT_TRUE(waitForFocus("check box 'Start at Login'"));
    EXPECT_FALSE(std::filesystem::exists(loginEntry()));
}

} // namespace

} // namespace corvane::desktop
