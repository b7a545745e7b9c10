#pragma once

#include <filesystem>
#include <vector>

namespace corvane::linux {

/// The socket at which the Corvane of the display that DISPLAY names takes commands. A user may
/// have several displays, each with a Corvane of its own.
std::filesystem::path commandSocket();

/// The sockets to try for a command, in this order: that of the display that DISPLAY names; where
/// it names none, those of all displays.
std::vector<std::filesystem::path> commandSockets();

} // namespace corvane::linux
