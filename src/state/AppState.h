#pragma once

#include "model/CorvaneConfig.h"
#include "model/Profile.h"
#include "platform/UserSession.h"
#include "state/ClickStatus.h"
#include "support/WeakCallbacks.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

namespace platform {
class MainQueue;
}
class ConfigService;
class ProfileService;
class SerialQueue;

/// The one state of the running application. Main thread. It notifies nobody: whoever changes it
/// refreshes what shows it.
class AppState {
  public:
    /// The services do their file work on `storeQueue`, which is destroyed before them.
    AppState(ConfigService &configService, ProfileService &profileService, SerialQueue &storeQueue,
             platform::MainQueue &mainQueue);

    CorvaneConfig config;
    ClickStatus status = ClickStatus::idle;
    /// Clicks of the current or last run.
    std::int64_t clickCount = 0;
    bool isAccessibilityGranted = false;
    /// As last announced by the system.
    platform::SessionState session = platform::SessionState::active;
    /// Whether the user has an alert to answer.
    bool isAlertOpen = false;
    std::vector<Profile> profiles;
    std::optional<Uuid> activeProfileID;

    /// "Idle", "Picking zone...", "Running (12 clicks)".
    std::string statusText() const;

    /// Loads in the background, then calls `done` on the main thread. A failure is printed and
    /// leaves everything as it is.
    void loadConfig(std::function<void()> done);
    void loadProfiles(std::function<void()> done);

    /// Saves a copy in the background, after the saves before it. A failure is printed.
    void saveConfig();
    void saveProfiles();

    /// Takes over the profile's settings and makes it the active one; saves both.
    void applyProfile(const Profile &profile);
    /// Appends a profile of the current settings and makes it the active one; saves.
    void saveCurrentAsProfile(std::string name);
    /// Renames and saves; does nothing for an unknown id.
    void renameProfile(Uuid id, std::string name);
    /// Removes every profile of that id and saves.
    void deleteProfile(Uuid id);

  private:
    ConfigService &configService_;
    ProfileService &profileService_;
    SerialQueue &storeQueue_;
    platform::MainQueue &mainQueue_;
    const WeakCallbacks<AppState> weakly_{*this};
};

} // namespace corvane
