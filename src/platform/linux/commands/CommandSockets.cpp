#include "platform/linux/commands/CommandSockets.h"

#include "platform/linux/environment/EnvironmentVariable.h"
#include "platform/linux/environment/UserDirectories.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>

#include <unistd.h>

namespace corvane::linux {

namespace {

constexpr const char *extension = ".socket";

std::string display() { return environmentVariable("DISPLAY"); }

/// In ASCII, whatever the locale.
bool isLetterOrDigit(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9');
}

/// ":0.0" and ":0" are the same display, "display_0"; that of another machine, "host:10", is
/// "display_host_10".
std::string fileNameFor(std::string_view display) {
    const auto colon = display.rfind(':');
    const std::string host(display.substr(0, colon));
    const std::string_view number =
        colon == std::string_view::npos ? std::string_view() : display.substr(colon + 1);
    std::string name = "display_" + (host.empty() ? "" : host + "_") +
                       std::string(number.substr(0, number.find('.')));
    std::ranges::replace_if(name, [](char letter) { return !isLetterOrDigit(letter); }, '_');
    return name + extension;
}

std::filesystem::path socketFolder() {
    const auto runtime = runtimeDirectory();
    return runtime ? *runtime / "corvane"
                   : std::filesystem::path("/tmp/corvane-" + std::to_string(geteuid()));
}

std::vector<std::filesystem::path> allCommandSockets() {
    std::vector<std::filesystem::path> sockets;
    std::error_code error;
    for (const auto &entry : std::filesystem::directory_iterator(socketFolder(), error)) {
        if (entry.path().extension() == extension) {
            sockets.push_back(entry.path());
        }
    }
    std::ranges::sort(sockets);
    return sockets;
}

} // namespace

std::filesystem::path commandSocket() { return socketFolder() / fileNameFor(display()); }

std::vector<std::filesystem::path> commandSockets() {
    return display().empty() ? allCommandSockets() : std::vector{commandSocket()};
}

} // namespace corvane::linux
