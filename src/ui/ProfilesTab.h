#pragma once

#include "model/Profile.h"
#include "ui/SettingsTab.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

namespace platform {
class Alerts;
class Applications;
} // namespace platform

/// Lists the profiles and saves new ones. It owns none of them: every action is a callback, after
/// which the tab is built anew.
class ProfilesTab : public SettingsTab {
  public:
    /// `alerts` and `applications` outlive the tab.
    ProfilesTab(std::vector<Profile> profiles, std::optional<Uuid> activeProfileID,
                platform::Alerts &alerts, platform::Applications &applications);

    /// Applies the profile.
    Handler<Profile> onLoad;
    Handler<Uuid, std::string> onRename;
    Handler<Uuid> onDelete;
    /// Saves the current configuration under that name.
    Handler<std::string> onSaveCurrent;

    View body() override;

  private:
    View listCard();
    View profileRow(std::size_t index);
    View profileTitle(const Profile &profile) const;
    View profileMenu(std::size_t index);
    View saveCard();

    void askForName(const Profile &profile);
    void setNewProfileName(const std::string &name);
    void saveCurrent();

    const std::vector<Profile> profiles_;
    const std::optional<Uuid> activeProfileID_;
    /// One for each profile, kept because finding an application's name may take a while.
    std::vector<std::string> summaries_;
    std::string newProfileName_;
    platform::Alerts &alerts_;
};

} // namespace corvane
