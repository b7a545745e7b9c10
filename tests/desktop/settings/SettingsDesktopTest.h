#pragma once

#include "DesktopTest.h"
#include "harness/actors/ScreenReader.h"
#include "harness/actors/StatusPanel.h"
#include "harness/probes/WindowTree.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::desktop {

/// The settings window of the real program, opened from a panel while another program has the
/// keyboard, used by keyboard alone and read by a screen reader.
class SettingsDesktopTest : public DesktopTest {
  protected:
    SettingsDesktopTest() : DesktopTest({.isAccessible = true}) {}

    void launch(const Settings &settings, CorvaneProcess::Options options = {});
    /// Chooses "Settings..." and waits until the window has the keyboard.
    void open();
    void openTab(const std::string &title);
    /// Quits from the menu and waits for the end.
    void quit();

    /// The window of that title that has the keyboard.
    std::optional<SeenWindow> active(const std::string &title) const;
    bool waitForActive(const std::string &title) const;
    /// Waits until neither the settings window nor anything else of the program's is on screen.
    bool waitUntilClosed() const;

    void strike(xcb_keysym_t key, int count = 1) const;
    void strikeWithShift(xcb_keysym_t key) const;
    /// Strikes the keys of digits, signs and lower case letters.
    void type(std::string_view text) const;

    /// Strikes Tab until that control has the keyboard; false when none of the next ones is it.
    bool tabTo(const std::string &control);
    bool waitForFocus(const std::string &control);

    /// Waits until the screen reader says these lines about the window; what it says in the end.
    std::vector<std::string> said(const std::string &window,
                                  const std::vector<std::string> &expected);
    /// Waits until the screen reader says the line somewhere in the window.
    bool says(const std::string &window, const std::string &line);

    std::string savedSettings() const;
    /// Waits until the settings file holds exactly that text; what it holds in the end.
    std::string savedSettings(const std::string &expected) const;
    std::string savedProfiles() const;

    ScreenReader reader_{desktop_};
    StatusPanel panel_{desktop_};
    std::unique_ptr<CorvaneProcess> corvane_;
};

} // namespace corvane::desktop
