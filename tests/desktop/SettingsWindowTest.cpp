#include "DesktopTest.h"
#include "harness/StatusPanel.h"
#include "harness/TextFile.h"
#include "harness/WindowTree.h"
#include "platform/linux/XcbReply.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <xcb/xcb_icccm.h>

#include <algorithm>

namespace corvane::desktop {

namespace {

using testing::Contains;
using testing::Not;

/// The settings window of the real program, opened from a panel while another program has the
/// keyboard, and used by keyboard alone.
class SettingsWindowOnDesktop : public DesktopTest {
  protected:
    void launch(const Settings &settings) {
        corvane_ = start(settings);
        ASSERT_TRUE(panel_.waitForItem()) << corvane_->story();
    }

    void open() {
        ASSERT_TRUE(panel_.choose("Settings..."));
        ASSERT_TRUE(waitUntil([this] { return isActive("General"); })) << corvane_->story();
    }

    /// The window of that title that has the keyboard.
    std::optional<SeenWindow> active(const std::string &title) const {
        const auto &connection = desktop_.connection();
        const auto id = connection.property(connection.root(), "_NET_ACTIVE_WINDOW");
        for (const SeenWindow &window : corvaneWindows(connection)) {
            if (window.id == id && window.title == title) {
                return window;
            }
        }
        return std::nullopt;
    }

    bool isActive(const std::string &title) const { return active(title).has_value(); }

    /// Neither the settings window nor anything else of the program's is on screen.
    bool isClosed() const {
        return std::ranges::none_of(corvaneWindows(desktop_.connection()), [](const auto &window) {
            return !window.isInputOnly && !window.title.empty();
        });
    }

    void strike(xcb_keysym_t key, int count = 1) const {
        for (int index = 0; index < count; ++index) {
            keyboard_.tap(keyboard_.keyOf(key));
        }
    }

    void type(std::string_view text) const {
        for (const char character : text) {
            strike(static_cast<xcb_keysym_t>(character));
        }
    }

    bool settingsHold(const std::string &text) const {
        return waitUntil(
            [&] { return readFile(settingsFile(desktop_)).find(text) != std::string::npos; });
    }

    std::vector<std::uint32_t> property(xcb_window_t window, const char *name,
                                        xcb_atom_t type) const {
        const auto &connection = desktop_.connection();
        const x11::XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection.get(),
            xcb_get_property(connection.get(), 0, window, connection.atom(name), type, 0, 64),
            nullptr));
        if (!reply) {
            return {};
        }
        const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
        return {first, first + reply->value_len};
    }

    StatusPanel panel_{desktop_};
    std::unique_ptr<CorvaneProcess> corvane_;
};

TEST_F(SettingsWindowOnDesktop, editsAndSavesByKeyboard) {
    launch({.clickRate = 20});
    open();
    // From the chosen tab over the two others and the mode to the rate.
    strike(XK_Tab, 4);
    type("35");
    strike(XK_Tab, 3);
    type("7");
    strike(XK_Return);
    EXPECT_TRUE(settingsHold("\"clickRate\" : 35")) << readFile(settingsFile(desktop_));
    EXPECT_TRUE(settingsHold("\"maxClicks\" : 7"));
    EXPECT_TRUE(waitUntil([this] { return isClosed(); }));
    EXPECT_TRUE(waitUntil([this] { return panel_.line("Rate: 35/s — 7x").has_value(); }));
}

TEST_F(SettingsWindowOnDesktop, dropsWhatIsTypedWhenItIsClosed) {
    launch({.clickRate = 20});
    open();
    strike(XK_Right);
    ASSERT_TRUE(waitUntil([this] { return isActive("Profiles"); }));
    strike(XK_Left);
    ASSERT_TRUE(waitUntil([this] { return isActive("General"); }));
    strike(XK_Tab, 4);
    type("35");
    strike(XK_Escape);
    ASSERT_TRUE(waitUntil([this] { return isClosed(); }));
    open();
    strike(XK_Return);
    EXPECT_TRUE(waitUntil([this] { return isClosed(); }));
    EXPECT_TRUE(settingsHold("\"clickRate\" : 20"));
}

TEST_F(SettingsWindowOnDesktop, savesAProfileAndShowsItInTheMenu) {
    launch({.clickRate = 20});
    open();
    strike(XK_Right);
    ASSERT_TRUE(waitUntil([this] { return isActive("Profiles"); }));
    // Over the last tab to the name.
    strike(XK_Tab, 2);
    type("fishing");
    strike(XK_Tab);
    strike(XK_space);
    EXPECT_TRUE(waitUntil([this] {
        const auto line = panel_.line("fishing");
        return line && line->isChecked;
    }));
    EXPECT_TRUE(waitUntil([this] {
        return readFile(profilesFile(desktop_)).find("\"name\" : \"fishing\"") != std::string::npos;
    }));
    EXPECT_TRUE(isActive("Profiles"));
}

TEST_F(SettingsWindowOnDesktop, hasAFixedSizeInTheMiddleOfTheScreen) {
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

    const auto actions = property(window.id, "_NET_WM_ALLOWED_ACTIONS", XCB_ATOM_ATOM);
    EXPECT_THAT(actions, Contains(connection.atom("_NET_WM_ACTION_CLOSE")));
    for (const char *refused : {"_NET_WM_ACTION_RESIZE", "_NET_WM_ACTION_MAXIMIZE_HORZ",
                                "_NET_WM_ACTION_MAXIMIZE_VERT"}) {
        EXPECT_THAT(actions, Not(Contains(connection.atom(refused)))) << refused;
    }
    // Not every window manager follows it, but it is told.
    constexpr std::uint32_t saysFunctions = 1;
    constexpr std::uint32_t all = 1;
    constexpr std::uint32_t minimize = 8;
    const auto hints = property(window.id, "_MOTIF_WM_HINTS", connection.atom("_MOTIF_WM_HINTS"));
    ASSERT_GE(hints.size(), 2U);
    EXPECT_NE(hints[0] & saysFunctions, 0);
    EXPECT_EQ(hints[1] & (all | minimize), 0);

    const auto &screen = connection.screen();
    EXPECT_NEAR(window.middle().x, screen.width_in_pixels / 2, 30);
    EXPECT_NEAR(window.middle().y, screen.height_in_pixels / 2, 60);
}

TEST_F(SettingsWindowOnDesktop, makesRoomForThePickAndComesBackWithTheZone) {
    launch({.clickMode = "zone"});
    open();
    // Over the tabs and the mode to the button.
    strike(XK_Tab, 4);
    strike(XK_space);
    ASSERT_TRUE(waitUntil([this] { return !isActive("General"); }));
    ASSERT_TRUE(waitUntil([this] {
        return std::ranges::any_of(corvaneWindows(desktop_.connection()),
                                   [](const auto &window) { return window.isOverride; });
    })) << corvane_->story();
    pointer_.drag({20, 30}, {180, 130});
    EXPECT_TRUE(waitUntil([this] { return isActive("General"); })) << corvane_->story();
    EXPECT_TRUE(settingsHold("\"width\" : 160")) << readFile(settingsFile(desktop_));
}

} // namespace

} // namespace corvane::desktop
