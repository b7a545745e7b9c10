#include "services/ConfigService.h"

#include "model/Json.h"
#include "platform/FileSystem.h"
#include "support/StandardOutput.h"

namespace corvane {

ConfigService::ConfigService(platform::FileSystem &files,
                             const std::filesystem::path &homeDirectory)
    : files_(files),
      configDir_(homeDirectory / ".config/corvane"),
      configFileURL_(configDir_ / "config.json") {}

Outcome<CorvaneConfig> ConfigService::load() {
    const std::lock_guard lock(mutex_);
    if (!files_.exists(configFileURL_)) {
        const CorvaneConfig created;
        if (const auto written = write(created); !written) {
            return std::unexpected(written.error());
        }
        printLine("[Corvane] Created default config at " + configFileURL_.string());
        return created;
    }
    const auto text = files_.readFile(configFileURL_);
    if (!text) {
        return std::unexpected(text.error());
    }
    const auto config = decodeConfig(*text);
    if (config) {
        currentConfig_ = *config;
        printLine("[Corvane] Loaded config from " + configFileURL_.string());
    }
    return config;
}

Outcome<> ConfigService::save(const CorvaneConfig &config) {
    const std::lock_guard lock(mutex_);
    return write(config);
}

std::optional<CorvaneConfig> ConfigService::currentConfig() const {
    const std::lock_guard lock(mutex_);
    return currentConfig_;
}

Outcome<> ConfigService::write(const CorvaneConfig &config) {
    if (!files_.exists(configDir_)) {
        if (const auto created = files_.createDirectories(configDir_); !created) {
            return created;
        }
    }
    const auto text = encodeConfig(config);
    if (!text) {
        return std::unexpected(text.error());
    }
    auto replaced = files_.replaceFile(configFileURL_, *text);
    if (replaced) {
        currentConfig_ = config;
    }
    return replaced;
}

} // namespace corvane
