#pragma once

#include "platform/UserSession.h"
#include "presentation/ActionID.h"

#include <optional>
#include <string>

namespace corvane {

class AppState;

/// Why a command cannot be carried out now.
enum class Obstacle { clicking, alertOpen, notGranted, sessionLocked, otherUser };

/// What stands in the way of a command now; nothing where it can be carried out. The menu shows
/// such a command disabled and the command line refuses it.
std::optional<Obstacle> obstacleTo(ActionID action, const AppState &state);

/// Why nothing may be clicked in a session of that state.
std::optional<Obstacle> sessionObstacle(platform::SessionState session);

/// In English, for the log and for answers to commands.
std::string reasonFor(Obstacle obstacle);

} // namespace corvane
