#pragma once

#include "presentation/Command.h"

#include <optional>

namespace corvane::linux {

/// Hands the request to the running Corvane of this user, on the display DISPLAY names where it
/// names one, and waits for the answer. Nothing when none is running.
std::optional<CommandAnswer> callRunning(const CommandRequest &request);

} // namespace corvane::linux
