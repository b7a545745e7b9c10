#include "platform/freedesktop/autostart/LoginItem.h"

#include "platform/FileSystem.h"
#include "platform/freedesktop/applications/DesktopEntry.h"

#include <system_error>
#include <utility>

#include <unistd.h>

namespace corvane::freedesktop {

namespace {

std::string entryFor(const std::filesystem::path &program) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Corvane\n"
           "Icon=corvane\n"
           "Exec=" +
           desktopEntryCommand(program.native()) +
           " --at-login\n"
           "TryExec=" +
           desktopEntryString(program.native()) +
           "\n"
           "Terminal=false\n";
}

} // namespace

LoginItem::LoginItem(platform::FileSystem &files, const std::filesystem::path &configDirectory,
                     std::filesystem::path program)
    : files_(files),
      entryFile_(configDirectory / "autostart" / "corvane.desktop"),
      program_(std::move(program)) {}

bool LoginItem::isEnabled() const {
    const auto file = files_.readFile(entryFile_);
    if (!file) {
        return false;
    }
    const auto values = desktopEntryValues(*file);
    const auto is = [&values](const char *key, std::string_view value) {
        const auto found = values.find(key);
        return found != values.end() && found->second == value;
    };
    const auto tryExec = values.find("TryExec");
    const bool isStartable =
        values.contains("Exec") &&
        (tryExec == values.end() || access(tryExec->second.c_str(), X_OK) == 0);
    return is("Type", "Application") && isStartable && !is("Hidden", "true") &&
           !is("X-GNOME-Autostart-enabled", "false") && !is("X-MATE-Autostart-enabled", "false");
}

Outcome<> LoginItem::registerItem() {
    if (const auto made = files_.createDirectories(entryFile_.parent_path()); !made) {
        return made;
    }
    return files_.replaceFile(entryFile_, entryFor(program_));
}

Outcome<> LoginItem::unregisterItem() {
    std::error_code error;
    std::filesystem::remove(entryFile_, error);
    if (error) {
        return std::unexpected(Failure{entryFile_.string() + ": " + error.message()});
    }
    return {};
}

} // namespace corvane::freedesktop
