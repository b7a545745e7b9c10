#pragma once

#include "model/CorvaneConfig.h"
#include "services/StoredFile.h"
#include "support/Failure.h"

#include <filesystem>
#include <mutex>
#include <optional>

namespace corvane {

namespace platform {
class FileSystem;
}

/// Keeps the current configuration in its file. Operations are done one at a time; any thread.
class ConfigService {
  public:
    ConfigService(platform::FileSystem &files, const std::filesystem::path &homeDirectory);

    const std::filesystem::path &configFileURL() const { return file_.path(); }

    /// The file's configuration; the default one, saved, where there is no file. Prints which.
    Outcome<CorvaneConfig> load();

    Outcome<> save(const CorvaneConfig &config);

    /// The configuration last loaded, created or saved.
    std::optional<CorvaneConfig> currentConfig() const;

  private:
    Outcome<> write(const CorvaneConfig &config);

    mutable std::mutex mutex_;
    StoredFile file_;
    std::optional<CorvaneConfig> currentConfig_;
};

} // namespace corvane
