#include "SettingsDesktopTest.h"
#include "platform/x11/connection/Xcb.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <xcb/xcb_icccm.h>

#include <vector>

namespace corvane::desktop {

namespace {

using testing::Contains;
using testing::Not;

class SettingsWindowOnDesktopTest : public SettingsDesktopTest {
  protected:
    std::vector<std::uint32_t> property(xcb_window_t window, const char *name) const {
        return desktop_.connection().properties(window, name);
    }
};

TEST_F(SettingsWindowOnDesktopTest, HasAFixedSizeInTheMiddleOfTheScreen) {
    launch({});
    open();
    const SeenWindow window = active("General").value();
    EXPECT_EQ(window.area.width, 540);
    const auto &connection = desktop_.connection();
    xcb_size_hints_t sizes{};
    ASSERT_TRUE(xcb_icccm_get_wm_normal_hints_reply(
        connection.get(), xcb_icccm_get_wm_normal_hints(connection.get(), window.id), &sizes,
        nullptr));
    EXPECT_EQ(sizes.min_width, 540);
    EXPECT_EQ(sizes.max_width, 540);
    EXPECT_EQ(sizes.min_height, window.area.height);
    EXPECT_EQ(sizes.max_height, window.area.height);

    const auto actions = property(window.id, "_NET_WM_ALLOWED_ACTIONS");
    EXPECT_THAT(actions, Contains(connection.atom("_NET_WM_ACTION_CLOSE")));
    for (const char *refused : {"_NET_WM_ACTION_RESIZE", "_NET_WM_ACTION_MAXIMIZE_HORZ",
                                "_NET_WM_ACTION_MAXIMIZE_VERT"}) {
        EXPECT_THAT(actions, Not(Contains(connection.atom(refused)))) << refused;
    }
    // Not every window manager honours the request, but it is sent.
    constexpr std::uint32_t saysFunctions = 1;
    constexpr std::uint32_t all = 1;
    constexpr std::uint32_t minimize = 8;
    const auto hints = property(window.id, "_MOTIF_WM_HINTS");
    ASSERT_GE(hints.size(), 2U);
    EXPECT_NE(hints[0] & saysFunctions, 0);
    EXPECT_EQ(hints[1] & (all | minimize), 0);

    const auto &screen = connection.screen();
    EXPECT_NEAR(window.middle().x, screen.width_in_pixels / 2.0, 30);
    EXPECT_NEAR(window.middle().y, screen.height_in_pixels / 2.0, 60);
}

TEST_F(SettingsWindowOnDesktopTest, KeepsItsTabWhenChosenAgainAndComesBackNewOnceClosed) {
    launch({});
    openTab("About");
    const xcb_window_t former = active("About").value().id;
    ASSERT_TRUE(panel_.choose("Settings..."));
    strike(XK_Escape);
    ASSERT_TRUE(waitUntilClosed());
    open();
    EXPECT_NE(active("General").value().id, former);
}

TEST_F(SettingsWindowOnDesktopTest, ComesBackFromWhereAWindowManagerHasPutIt) {
    launch({});
    openTab("Profiles");
    const xcb_window_t window = active("Profiles").value().id;
    desktop_.run({"xdotool", "windowminimize", "--sync", std::to_string(window)});
    ASSERT_TRUE(waitUntil([this] { return !active("Profiles"); }));
    ASSERT_TRUE(panel_.choose("Settings..."));
    ASSERT_TRUE(waitForActive("Profiles"));
    EXPECT_EQ(active("Profiles").value().id, window);
}

TEST_F(SettingsWindowOnDesktopTest, SaysWhatThisProgramIs) {
    launch({});
    openTab("About");
    const auto lines = reader_.window("About");
    ASSERT_EQ(lines.size(), 10U);
    EXPECT_EQ(lines[4], "label 'Corvane'");
    EXPECT_THAT(lines[5], testing::StartsWith("label 'Version "));
    EXPECT_EQ(lines[6], "label 'A simple auto-clicker for macOS.'");
    EXPECT_THAT((std::vector(lines.begin() + 7, lines.end())),
                testing::Each(testing::StartsWith("link '")));
    for (std::size_t link = 7; link < lines.size(); ++link) {
        EXPECT_TRUE(tabTo(lines[link])) << lines[link];
    }
}

} // namespace

} // namespace corvane::desktop
