#include "services/ClickBacklog.h"
#include "services/ClickCount.h"
#include "services/ClickerService.h"
#include "support/LineCapture.h"
#include "support/recorder/HandTurnedClock.h"
#include "support/recorder/RecordingMouseEvents.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <limits>
#include <stdexcept>
#include <thread>

namespace corvane {
namespace {

using std::chrono::milliseconds;
using Lines = std::vector<std::string>;

/// So often that nothing but the hold keeps two clicks apart.
constexpr CorvaneConfig withoutPause{.clickRate = std::numeric_limits<std::int64_t>::max()};

/// What a run does when something goes wrong around it.
class ClickRunSafetyTest : public ::testing::Test {
  protected:
    ~ClickRunSafetyTest() override { clock_.setSleepsBlock(false); }

    void start(const CorvaneConfig &config,
               const std::shared_ptr<const ClickBacklog> &backlog = nullptr) {
        clicker_.start(
            config, nullptr, [this](auto, auto) { ++clicks_; }, [this] { ++finishes_; }, backlog);
    }

    void stopAndAwait() {
        clicker_.stop();
        clicker_.awaitEnd();
    }

    testing::LogCapture log_;
    testing::HandTurnedClock clock_;
    testing::RecordingMouseEvents mouse_{clock_};
    std::atomic<int> clicks_ = 0;
    std::atomic<int> finishes_ = 0;
    ClickerService clicker_{mouse_, clock_};
};

TEST_F(ClickRunSafetyTest, AStopRightBeforeAPressPreventsIt) {
    std::promise<void> stopped;
    mouse_.onNextCreation([&] {
        clicker_.stop();
        stopped.set_value();
    });
    start(withoutPause);
    stopped.get_future().wait();
    clicker_.awaitEnd();
    EXPECT_TRUE(mouse_.posted().empty());
    EXPECT_EQ(clicks_, 0);
    EXPECT_EQ(log_.lines().back(), "Clicker stopped after 0 clicks");
}

TEST_F(ClickRunSafetyTest, AStopReturnsNoSoonerThanAPressUnderWayIsMade) {
    std::promise<void> stopped;
    auto isStopped = stopped.get_future();
    std::thread stopper;
    mouse_.onNextPress([&] {
        stopper = std::thread([&] {
            clicker_.stop();
            stopped.set_value();
        });
        EXPECT_TRUE(clock_.awaitCancellation());
        EXPECT_EQ(isStopped.wait_for(milliseconds(50)), std::future_status::timeout);
    });
    start(withoutPause);
    ASSERT_TRUE(mouse_.awaitPosted(2));
    stopper.join();
    clicker_.awaitEnd();
    EXPECT_EQ(mouse_.posted().size(), 2U);
    EXPECT_FALSE(mouse_.isButtonPressed());
}

TEST_F(ClickRunSafetyTest, ARunDoesNotGetFarAheadOfWhoShowsItsClicks) {
    const auto backlog = std::make_shared<ClickBacklog>();
    clicker_.start(
        withoutPause, nullptr,
        [&](auto, auto) {
            ++clicks_;
            backlog->clickMade();
        },
        [] {}, backlog);
    ASSERT_TRUE(clock_.awaitBlocked());
    EXPECT_EQ(clicks_, ClickBacklog::mostClicks);
    clock_.advance(std::chrono::seconds(10));
    ASSERT_TRUE(clock_.awaitBlocked());
    EXPECT_EQ(clicks_, ClickBacklog::mostClicks);
    EXPECT_FALSE(mouse_.isButtonPressed());

    backlog->clickShown();
    clock_.advance(milliseconds(5));
    ASSERT_TRUE(clock_.awaitBlocked());
    EXPECT_EQ(clicks_, ClickBacklog::mostClicks + 1);
    stopAndAwait();
    EXPECT_EQ(log_.lines().back(), "Clicker stopped after 26 clicks");
}

TEST_F(ClickRunSafetyTest, APressThatIsHeldUpIsFollowedByNoOther) {
    mouse_.setHeldUp(true);
    start(withoutPause);
    for (int look = 0; look < 20; ++look) {
        ASSERT_TRUE(clock_.awaitBlocked());
        EXPECT_EQ(mouse_.posted().size(), 1U);
        clock_.advance(milliseconds(5));
    }
    EXPECT_EQ(clicks_, 0);
    ASSERT_TRUE(clock_.awaitBlocked());
    mouse_.setHeldUp(false);
    clock_.advance(milliseconds(5));
    ASSERT_TRUE(mouse_.awaitPosted(10));
    stopAndAwait();
    EXPECT_FALSE(mouse_.isButtonPressed());
}

TEST_F(ClickRunSafetyTest, AReleaseThatIsHeldUpIsFollowedByNoPress) {
    clock_.setSleepsBlock(true);
    start(withoutPause);
    ASSERT_TRUE(clock_.awaitBlocked());
    mouse_.setHeldUp(true);
    clock_.setSleepsBlock(false);
    ASSERT_TRUE(mouse_.awaitPosted(2));
    for (int look = 0; look < 20; ++look) {
        ASSERT_TRUE(clock_.awaitBlocked());
        EXPECT_EQ(mouse_.posted().size(), 2U);
        clock_.advance(milliseconds(5));
    }
    EXPECT_EQ(clicks_, 1);
    stopAndAwait();
    EXPECT_EQ(mouse_.posted().size(), 2U);
}

TEST_F(ClickRunSafetyTest, AStopEndsARunThatIsHeldUp) {
    mouse_.setHeldUp(true);
    start(withoutPause);
    ASSERT_TRUE(clock_.awaitBlocked());
    stopAndAwait();
    EXPECT_EQ(mouse_.posted().size(), 2U);
    EXPECT_EQ(log_.lines().back(), "Clicker stopped after 1 clicks");
    EXPECT_EQ(finishes_, 0);
}

TEST_F(ClickRunSafetyTest, AStopBetweenTwoClicksLooksAtThePointerNoMore) {
    start({});
    ASSERT_TRUE(mouse_.awaitPosted(2));
    ASSERT_TRUE(clock_.awaitBlocked());
    const auto readings = mouse_.readings();
    stopAndAwait();
    EXPECT_EQ(mouse_.readings(), readings);
}

TEST_F(ClickRunSafetyTest, AButtonTheUserHoldsIsNotClickedWith) {
    mouse_.setHeldByUser(true);
    start(withoutPause);
    ASSERT_TRUE(clock_.awaitBlocked());
    clock_.advance(std::chrono::seconds(1));
    ASSERT_TRUE(clock_.awaitBlocked());
    EXPECT_TRUE(mouse_.posted().empty());
    mouse_.setHeldByUser(false);
    clock_.advance(milliseconds(5));
    ASSERT_TRUE(mouse_.awaitPosted(4));
    stopAndAwait();
}

TEST_F(ClickRunSafetyTest, AFailureAfterTheClickEndsTheRunInOrder) {
    clicker_.start(
        {}, nullptr, [](auto, auto) { throw std::runtime_error("no memory"); },
        [this] { ++finishes_; });
    ASSERT_TRUE(mouse_.awaitPosted(2));
    stopAndAwait();
    EXPECT_EQ(finishes_, 1);
    EXPECT_FALSE(mouse_.isButtonPressed());
    EXPECT_EQ(mouse_.openSessions(), 0U);
    EXPECT_EQ(log_.lines(), (Lines{"Clicker started: mode=cursor interval=1.0s maxClicks=0",
                                   "Clicker failed: no memory", "Clicker stopped after 1 clicks"}));
}

/// A clock that fails in the middle of a click.
class FailingClock : public testing::HandTurnedClock {
  public:
    void sleepFor(Duration /*duration*/) override { throw std::runtime_error("no sleep"); }
};

TEST(ClickRunFailureTest, AFailureBetweenPressAndReleaseReleasesTheButton) {
    const testing::LogCapture log;
    FailingClock clock;
    testing::RecordingMouseEvents mouse(clock);
    std::atomic<int> finishes = 0;
    ClickerService clicker(mouse, clock);
    clicker.start({}, nullptr, [](auto, auto) {}, [&] { ++finishes; });
    ASSERT_TRUE(mouse.awaitPosted(2));
    clicker.stop();
    clicker.awaitEnd();
    EXPECT_EQ(finishes, 1);
    EXPECT_FALSE(mouse.isButtonPressed());
    EXPECT_EQ(log.lines().back(), "Clicker stopped after 0 clicks");
}

TEST(ClickCountTest, CountsToTheGreatestNumberAndNoFurther) {
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
    ClickCount count(greatest - 1);
    count.addOne();
    EXPECT_EQ(count.value(), greatest);
    EXPECT_DEATH(count.addOne(), "");
}

} // namespace
} // namespace corvane
