#include "services/ProfileService.h"

#include "model/Json.h"
#include "support/Log.h"

namespace corvane {

ProfileService::ProfileService(platform::FileSystem &files,
                               const std::filesystem::path &homeDirectory)
    : file_(files, homeDirectory / ".config/corvane/profiles.json") {}

Outcome<ProfileStore> ProfileService::load() {
    const std::lock_guard lock(mutex_);
    if (!file_.exists()) {
        return ProfileStore{};
    }
    const auto text = file_.read();
    if (!text) {
        return std::unexpected(text.error());
    }
    auto store = decodeProfileStore(*text);
    if (store) {
        file_.setKnown(*text);
        log("Loaded " + std::to_string(store->profiles.size()) + " profiles from " +
            profilesFileURL().string());
    }
    return store;
}

Outcome<> ProfileService::save(const ProfileStore &store) {
    const std::lock_guard lock(mutex_);
    if (const auto made = file_.makeFolder(); !made) {
        return made;
    }
    const auto text = encodeProfileStore(store);
    if (!text) {
        return std::unexpected(text.error());
    }
    return file_.write(*text);
}

} // namespace corvane
