#include "services/ConfigService.h"

#include "model/Json.h"
#include "support/StandardOutput.h"

namespace corvane {

ConfigService::ConfigService(platform::FileSystem &files,
                             const std::filesystem::path &homeDirectory)
    : file_(files, homeDirectory / ".config/corvane/config.json") {}

Outcome<CorvaneConfig> ConfigService::load() {
    const std::lock_guard lock(mutex_);
    if (!file_.exists()) {
        CorvaneConfig created;
        if (const auto written = write(created); !written) {
            return std::unexpected(written.error());
        }
        printLine("[Corvane] Created default config at " + configFileURL().string());
        return created;
    }
    const auto text = file_.read();
    if (!text) {
        return std::unexpected(text.error());
    }
    const auto config = decodeConfig(*text);
    if (config) {
        file_.setKnown(*text);
        currentConfig_ = *config;
        printLine("[Corvane] Loaded config from " + configFileURL().string());
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
    if (const auto made = file_.makeFolder(); !made) {
        return made;
    }
    const auto text = encodeConfig(config);
    if (!text) {
        return std::unexpected(text.error());
    }
    auto written = file_.write(*text);
    if (written) {
        currentConfig_ = config;
    }
    return written;
}

} // namespace corvane
