#include "state/AppState.h"

#include "platform/MainQueue.h"
#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "support/Localised.h"
#include "support/SerialQueue.h"
#include "support/StandardOutput.h"

#include <algorithm>
#include <utility>

namespace corvane {

AppState::AppState(ConfigService &configService, ProfileService &profileService,
                   SerialQueue &storeQueue, platform::MainQueue &mainQueue)
    : configService_(configService),
      profileService_(profileService),
      storeQueue_(storeQueue),
      mainQueue_(mainQueue) {}

std::string AppState::statusText() const {
    switch (status) {
    case ClickStatus::idle:
        return localised("Idle");
    case ClickStatus::pickingZone:
        return localised("Picking zone...");
    case ClickStatus::running:
        break;
    }
    const std::string running = localised("Running");
    return clickCount < 1 ? running : running + " (" + std::to_string(clickCount) + " clicks)";
}

void AppState::loadConfig(std::function<void()> done) {
    const auto take = weakly_([done = std::move(done)](AppState &self, const auto &loaded) {
        if (loaded) {
            self.config = *loaded;
        }
        done();
    });
    storeQueue_.post([take, &service = configService_, &mainQueue = mainQueue_] {
        auto loaded = service.load();
        if (!loaded) {
            printLine("[Corvane] Failed to load config: " + loaded.error().description);
        }
        mainQueue.post([take, loaded = std::move(loaded)] { take(loaded); });
    });
}

void AppState::loadProfiles(std::function<void()> done) {
    const auto take = weakly_([done = std::move(done)](AppState &self, const auto &loaded) {
        if (loaded) {
            self.profiles = loaded->profiles;
            self.activeProfileID = loaded->activeProfileID;
        }
        done();
    });
    storeQueue_.post([take, &service = profileService_, &mainQueue = mainQueue_] {
        auto loaded = service.load();
        if (!loaded) {
            printLine("[Corvane] Failed to load profiles: " + loaded.error().description);
        }
        mainQueue.post([take, loaded = std::move(loaded)] { take(loaded); });
    });
}

void AppState::saveConfig() {
    storeQueue_.post([&service = configService_, copy = config] {
        if (const auto saved = service.save(copy); !saved) {
            printLine("[Corvane] Failed to save config: " + saved.error().description);
        }
    });
}

void AppState::saveProfiles() {
    storeQueue_.post([&service = profileService_, copy = ProfileStore{profiles, activeProfileID}] {
        if (const auto saved = service.save(copy); !saved) {
            printLine("[Corvane] Failed to save profiles: " + saved.error().description);
        }
    });
}

void AppState::applyProfile(const Profile &profile) {
    config = profile.toConfig();
    activeProfileID = profile.id;
    saveConfig();
    saveProfiles();
}

void AppState::saveCurrentAsProfile(std::string name) {
    profiles.push_back(Profile::fromConfig(std::move(name), config));
    activeProfileID = profiles.back().id;
    saveProfiles();
}

void AppState::renameProfile(Uuid id, std::string name) {
    const auto found = std::ranges::find(profiles, id, &Profile::id);
    if (found != profiles.end()) {
        found->name = std::move(name);
        saveProfiles();
    }
}

void AppState::deleteProfile(Uuid id) {
    std::erase_if(profiles, [&id](const Profile &profile) { return profile.id == id; });
    if (activeProfileID == id) {
        activeProfileID.reset();
    }
    saveProfiles();
}

} // namespace corvane
