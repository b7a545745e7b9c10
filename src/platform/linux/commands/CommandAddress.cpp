#include "platform/linux/commands/CommandAddress.h"

#include "platform/linux/environment/UserDirectories.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <unistd.h>

namespace corvane::linux {

namespace {

constexpr const char *socketExtension = ".socket";

std::string display() {
    const char *value = std::getenv("DISPLAY"); // NOLINT(concurrency-mt-unsafe)
    return value != nullptr ? value : "";
}

/// Of those that names on the bus may have, whatever the locale.
bool isLetterOrDigit(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9');
}

/// ":0.0" and ":0" are the same display, "display_0"; that of another machine, "host:10", is
/// "display_host_10".
std::string keyOf(std::string_view name) {
    const auto colon = name.rfind(':');
    const std::string host(name.substr(0, colon));
    const std::string_view number =
        colon == std::string_view::npos ? std::string_view() : name.substr(colon + 1);
    std::string key = "display_" + (host.empty() ? "" : host + "_") +
                      std::string(number.substr(0, number.find('.')));
    std::ranges::replace_if(key, [](char letter) { return !isLetterOrDigit(letter); }, '_');
    return key;
}

std::filesystem::path socketFolder() {
    const auto runtime = runtimeDirectory();
    return runtime ? *runtime / "corvane"
                   : std::filesystem::path("/tmp/corvane-" + std::to_string(geteuid()));
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

CommandAddress CommandAddress::ofDisplay() { return addressOf(keyOf(display())); }

std::vector<CommandAddress> commandAddresses() {
    return display().empty() ? addressesOfAll() : std::vector{CommandAddress::ofDisplay()};
}

std::string commandBusName() { return CORVANE_BUS_NAME; }

std::string commandBusPath() {
    std::string path = "/" + commandBusName();
    std::ranges::replace(path, '.', '/');
    return path;
}

std::string commandBusInterface() { return commandBusName(); }

} // namespace corvane::linux
