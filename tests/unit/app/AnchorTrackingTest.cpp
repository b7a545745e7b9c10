#include "app/AnchorTracking.h"

#include "services/DynamicZoneRect.h"
#include "services/WindowResolver.h"
#include "support/LineCapture.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <utility>

namespace corvane {
namespace {

using std::chrono::milliseconds;

class AnchorTrackingTest : public ::testing::Test {
  protected:
    AnchorTrackingTest() {
        platform.applications().runningApplications = {{7, "org.example.editor"}};
        moveWindow({100, 200});
    }

    void moveWindow(Point position) {
        platform.accessibility().windowsByProcess[7] = {
            {.title = "Report", .position = position, .size = Size{800, 600}}};
    }

    testing::LogCapture log;
    testing::RecordingPlatform platform;
    WindowResolver resolver{platform.windowList(), platform.applications(),
                            platform.accessibility()};
    std::shared_ptr<DynamicZoneRect> zone =
        std::make_shared<DynamicZoneRect>(Rectangle{1, 2, 200, 80});
    std::vector<Rectangle> moves;
    std::vector<std::size_t> linesBeforeMoves;
    milliseconds durationOfNextMove{0};
    std::unique_ptr<AnchorTracking> tracking = std::make_unique<AnchorTracking>(
        platform.mainQueue(), resolver,
        WindowAnchor{"org.example.editor", "Report", {30, 60, 200, 80}}, zone,
        [this](const Rectangle &moved) {
            EXPECT_EQ(zone->rect(), moved);
            moves.push_back(moved);
            linesBeforeMoves.push_back(log.lines().size());
            platform.clock().advance(std::exchange(durationOfNextMove, milliseconds(0)));
        });
};

TEST_F(AnchorTrackingTest, BeginsWithAPause) {
    platform.advance(milliseconds(15));
    EXPECT_TRUE(moves.empty());
    EXPECT_EQ(zone->rect(), (Rectangle{1, 2, 200, 80}));
    platform.advance(milliseconds(1));
    EXPECT_EQ(moves, std::vector{(Rectangle{130, 260, 200, 80})});
}

TEST_F(AnchorTrackingTest, FollowsTheWindowEverySixteenMilliseconds) {
    platform.advance(milliseconds(16));
    moveWindow({400, 50});
    platform.advance(milliseconds(16));
    EXPECT_EQ(zone->rect(), (Rectangle{430, 110, 200, 80}));
    platform.advance(milliseconds(160));
    EXPECT_EQ(moves.size(), 12U);
}

TEST_F(AnchorTrackingTest, ThePauseBeginsWhenAPassHasEnded) {
    durationOfNextMove = milliseconds(100);
    platform.advance(milliseconds(16));
    const platform::Instant end = platform.clock().now();
    EXPECT_EQ(moves.size(), 1U);
    EXPECT_EQ(platform.mainQueue().nextDeadline(), end + milliseconds(16));
}

TEST_F(AnchorTrackingTest, EveryPassIsLogged) {
    platform.advance(milliseconds(48));
    platform.accessibility().windowsByProcess.clear();
    platform.advance(milliseconds(32));
    const std::string found = "WindowResolver: resolved to (130.0, 260.0, 200.0, 80.0) "
                              "(window at (100.0, 200.0, 800.0, 600.0))";
    const std::string lost = "WindowResolver: cannot get windows for org.example.editor";
    EXPECT_EQ(log.lines(), (std::vector{found, found, found, lost, lost}));
}

TEST_F(AnchorTrackingTest, TheZoneDoesNotWaitForTheLog) {
    platform.advance(milliseconds(48));
    EXPECT_EQ(linesBeforeMoves, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(log.lines().size(), 3U);
}

TEST_F(AnchorTrackingTest, ALostWindowLeavesTheZoneAndIsLookedForOn) {
    platform.advance(milliseconds(16));
    platform.accessibility().windowsByProcess.clear();
    platform.advance(milliseconds(32));
    EXPECT_EQ(moves.size(), 1U);
    EXPECT_EQ(zone->rect(), (Rectangle{130, 260, 200, 80}));
    moveWindow({0, 0});
    platform.advance(milliseconds(16));
    EXPECT_EQ(zone->rect(), (Rectangle{30, 60, 200, 80}));
}

TEST_F(AnchorTrackingTest, EndsWhenDestroyed) {
    tracking.reset();
    platform.advance(milliseconds(160));
    EXPECT_TRUE(moves.empty());
    EXPECT_EQ(platform.mainQueue().timerCount(), 0U);
}

} // namespace
} // namespace corvane
