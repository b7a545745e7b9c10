#include "SettingsDesktopTest.h"

#include "harness/TextFile.h"

#include <X11/keysym.h>

#include <algorithm>
#include <utility>

namespace corvane::desktop {

void SettingsDesktopTest::launch(const Settings &settings, CorvaneProcess::Options options) {
    corvane_ = start(settings, std::move(options));
    ASSERT_TRUE(panel_.waitForItem()) << corvane_->story();
}

void SettingsDesktopTest::open() {
    ASSERT_TRUE(waitUntil([this] { return panel_.choose("Settings..."); }));
    ASSERT_TRUE(waitForActive("General")) << corvane_->story();
}

void SettingsDesktopTest::openTab(const std::string &title) {
    open();
    ASSERT_TRUE(waitForFocus("page tab 'General' selected"));
    while (!active(title)) {
        const std::string former = reader_.focus();
        strike(XK_Right);
        ASSERT_TRUE(waitUntil([&] { return reader_.focus() != former; }));
    }
    ASSERT_TRUE(waitForFocus("page tab '" + title + "' selected"));
}

void SettingsDesktopTest::quit() {
    ASSERT_TRUE(panel_.choose("Quit Corvane"));
    EXPECT_EQ(corvane_->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane_->story();
}

std::optional<SeenWindow> SettingsDesktopTest::active(const std::string &title) const {
    const auto &connection = desktop_.connection();
    const auto id = connection.property(connection.root(), "_NET_ACTIVE_WINDOW");
    for (const SeenWindow &window : corvaneWindows(connection)) {
        if (window.id == id && window.title == title) {
            return window;
        }
    }
    return std::nullopt;
}

bool SettingsDesktopTest::waitForActive(const std::string &title) const {
    return waitUntil([&] { return active(title).has_value(); });
}

bool SettingsDesktopTest::waitUntilClosed() const {
    return waitUntil([this] {
        return std::ranges::none_of(corvaneWindows(desktop_.connection()), [](const auto &window) {
            return !window.isInputOnly && !window.title.empty();
        });
    });
}

void SettingsDesktopTest::strike(xcb_keysym_t key, int count) const {
    for (int index = 0; index < count; ++index) {
        keyboard_.tap(keyboard_.keyOf(key));
    }
}

void SettingsDesktopTest::strikeWithShift(xcb_keysym_t key) const {
    keyboard_.press(keyboard_.keyOf(XK_Shift_L));
    strike(key);
    keyboard_.release(keyboard_.keyOf(XK_Shift_L));
}

void SettingsDesktopTest::type(std::string_view text) const {
    for (const char character : text) {
        strike(static_cast<xcb_keysym_t>(character));
    }
}

bool SettingsDesktopTest::tabTo(const std::string &control) {
    constexpr int mostControls = 40;
    for (int count = 0; count < mostControls; ++count) {
        const std::string former = reader_.focus();
        if (former == control) {
            return true;
        }
        strike(XK_Tab);
        if (!waitUntil([&] { return reader_.focus() != former; })) {
            return false;
        }
    }
    return false;
}

bool SettingsDesktopTest::waitForFocus(const std::string &control) {
    return waitUntil([&] { return reader_.focus() == control; });
}

std::vector<std::string> SettingsDesktopTest::said(const std::string &window,
                                                   const std::vector<std::string> &expected) {
    std::vector<std::string> lines;
    waitUntil([&] {
        lines = reader_.window(window);
        return lines == expected;
    });
    return lines;
}

bool SettingsDesktopTest::says(const std::string &window, const std::string &line) {
    return waitUntil([&] { return std::ranges::count(reader_.window(window), line) > 0; });
}

std::string SettingsDesktopTest::savedSettings() const { return readFile(settingsFile(desktop_)); }

std::string SettingsDesktopTest::savedSettings(const std::string &expected) const {
    waitUntil([&] { return savedSettings() == expected; });
    return savedSettings();
}

std::string SettingsDesktopTest::savedProfiles() const { return readFile(profilesFile(desktop_)); }

} // namespace corvane::desktop
