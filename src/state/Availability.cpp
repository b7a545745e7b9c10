#include "state/Availability.h"

#include "state/AppState.h"

namespace corvane {

namespace {

/// While clicks are made the settings stay as they are.
std::optional<Obstacle> obstacleToChange(const AppState &state) {
    return state.status == ClickStatus::running ? std::optional(Obstacle::clicking) : std::nullopt;
}

/// One question at a time, and no picker over it: it could not be answered.
std::optional<Obstacle> obstacleToQuestion(const AppState &state) {
    const auto obstacle = obstacleToChange(state);
    return !obstacle && state.isAlertOpen ? Obstacle::alertOpen : obstacle;
}

std::optional<Obstacle> obstacleToStart(const AppState &state) {
    const auto obstacle = sessionObstacle(state.session);
    return !obstacle && !state.isAccessibilityGranted ? Obstacle::notGranted : obstacle;
}

} // namespace

std::optional<Obstacle> obstacleTo(ActionID action, const AppState &state) {
    switch (action) {
    case ActionID::startClicking:
        return obstacleToStart(state);
    case ActionID::selectZone:
    case ActionID::saveAsProfile:
        return obstacleToQuestion(state);
    case ActionID::setModeCursor:
    case ActionID::setModeZone:
    case ActionID::loadProfile:
    case ActionID::showConfig:
        return obstacleToChange(state);
    case ActionID::none:
    case ActionID::openAccessibilitySettings:
    case ActionID::stopClicking:
    case ActionID::terminate:
        break;
    }
    return std::nullopt;
}

std::optional<Obstacle> sessionObstacle(platform::SessionState session) {
    switch (session) {
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
    switch (obstacle) {
    case Obstacle::clicking:
        return "not while Corvane clicks; 'corvane stop' ends that";
    case Obstacle::alertOpen:
        return "a question on the screen has to be answered first";
    case Obstacle::notGranted:
        return "Corvane may not click in other applications; 'corvane doctor' says why";
    case Obstacle::sessionLocked:
        return "the session is locked";
    case Obstacle::otherUser:
        break;
    }
    return "another user's session has the screen";
}

} // namespace corvane
