#include "state/Availability.h"

#include "app/SharedServices.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace corvane {
namespace {

using platform::SessionState;

constexpr std::array allActions{ActionID::none,          ActionID::openAccessibilitySettings,
                                ActionID::startClicking, ActionID::stopClicking,
                                ActionID::setModeCursor, ActionID::setModeZone,
                                ActionID::selectZone,    ActionID::loadProfile,
                                ActionID::saveAsProfile, ActionID::showConfig,
                                ActionID::terminate};

class AvailabilityTest : public ::testing::Test {
  protected:
    AvailabilityTest() { state.isAccessibilityGranted = true; }

    /// The actions that an obstacle of that kind keeps back.
    std::vector<ActionID> keptBackBy(Obstacle obstacle) const {
        std::vector<ActionID> actions;
        for (const ActionID action : allActions) {
            if (obstacleTo(action, state) == obstacle) {
                actions.push_back(action);
            }
        }
        return actions;
    }

    bool isEverythingPossible() const {
        return std::ranges::none_of(
            allActions, [this](ActionID action) { return obstacleTo(action, state).has_value(); });
    }

    testing::RecordingPlatform platform;
    SharedServices shared{platform};
    AppState &state = shared.appState;
};

TEST_F(AvailabilityTest, EverythingIsPossibleWhileIdleAndWhilePicking) {
    EXPECT_TRUE(isEverythingPossible());
    state.status = ClickStatus::pickingZone;
    EXPECT_TRUE(isEverythingPossible());
}

TEST_F(AvailabilityTest, WhileClickingTheSettingsStayAsTheyAre) {
    state.status = ClickStatus::running;
    EXPECT_EQ(keptBackBy(Obstacle::clicking),
              (std::vector{ActionID::setModeCursor, ActionID::setModeZone, ActionID::selectZone,
                           ActionID::loadProfile, ActionID::saveAsProfile, ActionID::showConfig}));
    EXPECT_FALSE(obstacleTo(ActionID::stopClicking, state));
    EXPECT_FALSE(obstacleTo(ActionID::terminate, state));
}

TEST_F(AvailabilityTest, AnOpenAlertKeepsBackWhatAsksTheUser) {
    state.isAlertOpen = true;
    EXPECT_EQ(keptBackBy(Obstacle::alertOpen),
              (std::vector{ActionID::selectZone, ActionID::saveAsProfile}));
    EXPECT_FALSE(obstacleTo(ActionID::startClicking, state));
}

TEST_F(AvailabilityTest, WithoutThePermissionOnlyClickingIsKeptBack) {
    state.isAccessibilityGranted = false;
    EXPECT_EQ(keptBackBy(Obstacle::notGranted), std::vector{ActionID::startClicking});
}

TEST_F(AvailabilityTest, ASessionThatCannotBeClickedInKeepsBackClicking) {
    state.isAccessibilityGranted = false;
    state.session = SessionState::locked;
    EXPECT_EQ(keptBackBy(Obstacle::sessionLocked), std::vector{ActionID::startClicking});
    state.session = SessionState::otherUser;
    EXPECT_EQ(keptBackBy(Obstacle::otherUser), std::vector{ActionID::startClicking});
}

} // namespace
} // namespace corvane
