#include "platform/linux/CommandAddress.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace corvane::x11 {

namespace {

constexpr const char *socketExtension = ".socket";

std::string variable(const char *name) {
    const char *value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value != nullptr ? value : "";
}

/// ":0.0" and ":0" are the same display, "display_0"; that of another machine, "host:10", is
/// "display_host_10".
std::string keyOf(std::string_view display) {
    const auto colon = display.rfind(':');
    const std::string host(display.substr(0, colon));
    const std::string_view number =
        colon == std::string_view::npos ? std::string_view() : display.substr(colon + 1);
    std::string key = "display_" + (host.empty() ? "" : host + "_") +
                      std::string(number.substr(0, number.find('.')));
    std::ranges::replace_if(
        key, [](unsigned char letter) { return std::isalnum(letter) == 0; }, '_');
    return key;
}

bool isOwnFolder(const std::filesystem::path &path) {
    struct stat status{};
    return path.is_absolute() && stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid();
}

std::filesystem::path socketFolder() {
    const std::filesystem::path runtime = variable("XDG_RUNTIME_DIR");
    if (isOwnFolder(runtime)) {
        return runtime / "corvane";
    }
    return "/tmp/corvane-" + std::to_string(geteuid());
}

CommandAddress addressOf(const std::string &key) {
    return {.busName = commandBusName() + "." + key,
            .socket = socketFolder() / (key + socketExtension)};
}

/// On the bus the plain name stands for one of them; without a bus the sockets tell.
std::vector<CommandAddress> addressesOfAll() {
    std::vector<CommandAddress> addresses;
    std::error_code error;
    for (const auto &entry : std::filesystem::directory_iterator(socketFolder(), error)) {
        if (entry.path().extension() == socketExtension) {
            addresses.push_back({.busName = "", .socket = entry.path()});
        }
    }
    std::ranges::sort(addresses, {}, &CommandAddress::socket);
    addresses.insert(addresses.begin(), {.busName = commandBusName(), .socket = {}});
    return addresses;
}

} // namespace

CommandAddress CommandAddress::ofDisplay() { return addressOf(keyOf(variable("DISPLAY"))); }

std::vector<CommandAddress> commandAddresses() {
    return variable("DISPLAY").empty() ? addressesOfAll()
                                       : std::vector{CommandAddress::ofDisplay()};
}

std::string commandBusName() { return CORVANE_BUS_NAME; }

std::string commandBusPath() {
    std::string path = "/" + commandBusName();
    std::ranges::replace(path, '.', '/');
    return path;
}

std::string commandBusInterface() { return commandBusName(); }

bool hasSessionBus() {
    const std::filesystem::path runtime = variable("XDG_RUNTIME_DIR");
    return !variable("DBUS_SESSION_BUS_ADDRESS").empty() ||
           (isOwnFolder(runtime) && std::filesystem::exists(runtime / "bus"));
}

} // namespace corvane::x11
