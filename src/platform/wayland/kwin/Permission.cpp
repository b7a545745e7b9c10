#include "platform/wayland/kwin/Permission.h"

#include "platform/linux/environment/UserDirectories.h"
#include "platform/wayland/kwin/Bus.h"
#include "support/Log.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <thread>

namespace corvane::wayland::kwin {

namespace {

std::string contentsOf(const std::filesystem::path &file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// KWin compares the program's own path with the whole line "Exec".
std::string desktopEntry(const std::filesystem::path &program) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Corvane\n"
           "Icon=corvane\n"
           "NoDisplay=true\n"
           "Exec=" +
           program.string() +
           "\n"
           "X-KDE-Wayland-Interfaces=org_kde_kwin_fake_input\n";
}

/// Whether there is a file afterwards.
bool writeDesktopEntry() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        return false;
    }
    const auto file = linux::dataDirectory() / "applications" / "corvane-mouse-button.desktop";
    const std::string entry = desktopEntry(program);
    std::filesystem::create_directories(file.parent_path(), error);
    return contentsOf(file) == entry || (std::ofstream(file) << entry << std::flush);
}

} // namespace

std::unique_ptr<Connection> openWithPermission() {
    if (!isRunning() || !writeDesktopEntry()) {
        return nullptr;
    }
    log("Waiting for KWin to let this program press the mouse button");
    constexpr std::chrono::milliseconds interval{500};
    constexpr int attempts = 8;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::this_thread::sleep_for(interval);
        auto connection = Connection::open();
        if (connection && connection->fakeInput() != nullptr) {
            return connection;
        }
    }
    return nullptr;
}

} // namespace corvane::wayland::kwin
