#pragma once

#include "model/ProfileStore.h"
#include "services/StoredFile.h"
#include "support/Failure.h"

#include <filesystem>
#include <mutex>

namespace corvane {

namespace platform {
class FileSystem;
}

/// Reads and writes the profiles file. Operations are done one at a time; any thread.
class ProfileService {
  public:
    ProfileService(platform::FileSystem &files, const std::filesystem::path &homeDirectory);

    const std::filesystem::path &profilesFileURL() const { return file_.path(); }

    /// An empty store where there is no file.
    Outcome<ProfileStore> load();

    Outcome<> save(const ProfileStore &store);

  private:
    std::mutex mutex_;
    StoredFile file_;
};

} // namespace corvane
