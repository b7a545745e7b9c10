#include "platform/linux/environment/UserDirectories.h"

#include "platform/linux/environment/EnvironmentVariable.h"

#include <array>
#include <utility>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::linux {

namespace {

std::optional<std::filesystem::path> absolutePathIn(const char *variable) {
    std::filesystem::path path = environmentVariable(variable);
    return path.is_absolute() ? std::optional(std::move(path)) : std::nullopt;
}

std::filesystem::path homeInPasswordDatabase() {
    passwd entry{};
    passwd *found = nullptr;
    std::array<char, 16384> texts{};
    getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
    const std::filesystem::path home = found != nullptr ? found->pw_dir : "";
    return home.is_absolute() ? home : "/";
}

} // namespace

std::filesystem::path homeDirectory() {
    const auto home = absolutePathIn("HOME");
    return home ? *home : homeInPasswordDatabase();
}

std::filesystem::path configDirectory() {
    return absolutePathIn("XDG_CONFIG_HOME").value_or(homeDirectory() / ".config");
}

std::filesystem::path dataDirectory() {
    return absolutePathIn("XDG_DATA_HOME").value_or(homeDirectory() / ".local" / "share");
}

std::optional<std::filesystem::path> runtimeDirectory() {
    auto path = absolutePathIn("XDG_RUNTIME_DIR");
    struct stat status{};
    const bool isOwn = path && stat(path->c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                       status.st_uid == geteuid();
    return isOwn ? path : std::nullopt;
}

} // namespace corvane::linux
