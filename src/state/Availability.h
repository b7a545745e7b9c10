#pragma once

#include "platform/UserSession.h"

#include <optional>
#include <string>

namespace corvane {

/// Why a command cannot be carried out now.
enum class Obstacle { sessionLocked, otherUser };

/// What the session's state keeps the program from: clicking.
std::optional<Obstacle> sessionObstacle(platform::SessionState state);

/// In English, for the log and for answers to commands.
std::string reasonFor(Obstacle obstacle);

} // namespace corvane
