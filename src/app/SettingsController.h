#pragma once

#include "support/WeakCallbacks.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane {

namespace platform {
class Platform;
}
class ConfigWindow;
class SettingsTab;
struct CorvaneConfig;
struct SharedServices;

/// The settings window with its tabs, and what their edits do to the state. Main thread.
class SettingsController {
  public:
    /// The platform and the services outlive the controller. `refresh` rebuilds the menu.
    SettingsController(platform::Platform &platform, SharedServices &shared,
                       std::function<void()> selectZone, std::function<void()> refresh);
    ~SettingsController();

    /// Brings the window to the front; a closed one is replaced by a new one.
    void show();
    /// Replaces the window, so that every tab shows the present state.
    void reopen();
    void hide();
    bool isVisible() const;

    void selectTab(const std::string &identifier);

  private:
    std::shared_ptr<SettingsTab> makeTab(const std::string &identifier);
    std::shared_ptr<SettingsTab> makeGeneralTab();
    std::shared_ptr<SettingsTab> makeProfilesTab();
    void save(const CorvaneConfig &config);
    void removeAnchor();
    void profilesChanged();

    platform::Platform &platform_;
    SharedServices &shared_;
    const std::function<void()> selectZone_;
    const std::function<void()> refresh_;
    std::unique_ptr<ConfigWindow> configWindow_;
    const WeakCallbacks<SettingsController> weakly_{*this};
};

} // namespace corvane
