#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvane {

namespace platform {
class NativeSettingsWindow;
class SettingsWindows;
} // namespace platform
class SettingsTab;

/// The settings window: a toolbar with three tabs, "general", "profiles" and "about", and the
/// content of the one shown. Main thread. Created off screen on the General tab.
class ConfigWindow {
  public:
    /// Builds the tab of that identifier from the present state.
    using TabMaker = std::function<std::shared_ptr<SettingsTab>(const std::string &identifier)>;

    ConfigWindow(platform::SettingsWindows &windows, TabMaker makeTab,
                 std::function<void(const std::string &identifier)> toolbarTabSelected);
    ~ConfigWindow();

    ConfigWindow(const ConfigWindow &) = delete;
    ConfigWindow &operator=(const ConfigWindow &) = delete;

    bool isVisible() const;
    void center();
    void makeKeyAndOrderFront();
    void orderOut();

    void setSelectedItemIdentifier(const std::string &identifier);

    /// Replaces the content by a new tab and takes over its title; an unknown identifier changes
    /// nothing.
    void showTab(const std::string &identifier);

  private:
    void retireTab();

    TabMaker makeTab_;
    std::shared_ptr<SettingsTab> tab_;
    std::unique_ptr<platform::NativeSettingsWindow> window_;
};

} // namespace corvane
