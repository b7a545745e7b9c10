#pragma once

#include "harness/DisplayConnection.h"
#include "harness/actors/Keyboard.h"
#include "platform/qt/settings/SettingsWindows.h"
#include "services/WindowResolver.h"
#include "support/recorder/RecordingPlatform.h"
#include "ui/ConfigWindow.h"
#include "ui/GeneralTab.h"
#include "ui/ProfilesTab.h"

#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::contract {

/// The lines of a text.
std::vector<std::string> lines(const std::string &text);

/// The real settings window with its real tabs on a screen without a window manager, and a keyboard
/// to use it with. What lies behind the tabs is recorded.
class SettingsWindowTest : public ::testing::Test {
  protected:
    /// Opens the window on a tab and waits until it has the keyboard.
    void open(const std::string &tab = "general");

    /// The window on the screen.
    QWidget &screenWindow() const;

    /// What a screen reader finds in the content, the toolbar left out.
    std::vector<std::string> spoken() const;
    bool isSpoken(const std::string &line) const;

    template <typename Widget = QWidget>
    Widget &named(const QString &name) const {
        const auto widgets = screenWindow().findChildren<Widget *>();
        for (Widget *widget : widgets) {
            if (widget->accessibleName() == name && widget->isVisible()) {
                return *widget;
            }
        }
        throw std::logic_error("nothing named " + name.toStdString());
    }

    /// Gives the keyboard to a control as a click would.
    void focus(QWidget &widget) const;

    /// Strikes a key and waits until it has had its effect.
    void strike(xcb_keysym_t key, const std::function<bool()> &effect) const;
    /// Strikes a key, and then waits until a later one has arrived too.
    void strike(xcb_keysym_t key) const;
    void strikeWithShift(xcb_keysym_t key, const std::function<bool()> &effect) const;
    /// Strikes the keys of digits, signs and lower case letters, one after the other.
    void type(const std::string &text) const;

    testing::RecordingPlatform platform;
    WindowResolver resolver{platform.windowList(), platform.applications(),
                            platform.accessibility()};
    CorvaneConfig config;
    std::vector<Profile> profiles;
    std::vector<CorvaneConfig> saved;
    std::vector<std::string> savedProfiles;
    std::vector<std::string> loadedProfiles;
    std::vector<Uuid> deletedProfiles;
    /// Called when the user is done with the General tab.
    std::function<void()> afterSaving;

    qt::SettingsWindows windows{qt::OwnWindows()};
    std::shared_ptr<SettingsTab> tab;
    std::unique_ptr<ConfigWindow> window;

  private:
    std::shared_ptr<SettingsTab> makeTab(const std::string &identifier);

    desktop::DisplayConnection connection_{qgetenv("DISPLAY").toStdString()};
    desktop::Keyboard keyboard_{connection_};
};

} // namespace corvane::contract
