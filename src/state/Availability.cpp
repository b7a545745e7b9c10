#include "state/Availability.h"

namespace corvane {

std::optional<Obstacle> sessionObstacle(platform::SessionState state) {
    switch (state) {
    case platform::SessionState::locked:
        return Obstacle::sessionLocked;
    case platform::SessionState::otherUser:
        return Obstacle::otherUser;
    case platform::SessionState::active:
        break;
    }
    return std::nullopt;
}

std::string reasonFor(Obstacle obstacle) {
    return obstacle == Obstacle::sessionLocked ? "the session is locked"
                                               : "another user's session has the screen";
}

} // namespace corvane
