#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace corvane::linux {

/// Where the Corvane of a display takes commands. A user may have several displays on one message
/// bus, each with a Corvane of its own.
struct CommandAddress {
    /// On the session bus; empty for none.
    std::string busName;
    /// Empty for none.
    std::filesystem::path socket;

    /// That of the display DISPLAY names.
    static CommandAddress ofDisplay();

    bool operator==(const CommandAddress &) const = default;
};

/// The addresses to try for a command, the best first: that of the display DISPLAY names; where it
/// names none, those of all displays there are.
std::vector<CommandAddress> commandAddresses();

/// The name on the bus that stands for any Corvane of the user.
std::string commandBusName();
/// Where its object is found, and the object's interface.
std::string commandBusPath();
std::string commandBusInterface();

} // namespace corvane::linux
