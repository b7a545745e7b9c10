#include "services/ProfileService.h"

#include "model/Json.h"
#include "platform/FileSystem.h"
#include "support/Log.h"

namespace corvane {

ProfileService::ProfileService(platform::FileSystem &files,
                               const std::filesystem::path &homeDirectory)
    : files_(files),
      configDir_(homeDirectory / ".config/corvane"),
      profilesFileURL_(configDir_ / "profiles.json") {}

Outcome<ProfileStore> ProfileService::load() {
    const std::lock_guard lock(mutex_);
    if (!files_.exists(profilesFileURL_)) {
        return ProfileStore{};
    }
    const auto text = files_.readFile(profilesFileURL_);
    if (!text) {
        return std::unexpected(text.error());
    }
    auto store = decodeProfileStore(*text);
    if (store) {
        log("Loaded " + std::to_string(store->profiles.size()) + " profiles from " +
            profilesFileURL_.string());
    }
    return store;
}

Outcome<> ProfileService::save(const ProfileStore &store) {
    const std::lock_guard lock(mutex_);
    if (!files_.exists(configDir_)) {
        if (const auto created = files_.createDirectories(configDir_); !created) {
            return created;
        }
    }
    const auto text = encodeProfileStore(store);
    if (!text) {
        return std::unexpected(text.error());
    }
    return files_.replaceFile(profilesFileURL_, *text);
}

} // namespace corvane
