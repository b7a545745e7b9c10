#include "support/ClickerServiceTest.h"

#include "support/Log.h"
#include "support/TimeLimit.h"

#include <limits>
#include <pthread.h>
#include <thread>

namespace corvane::testing {
namespace {

using platform::MouseEventType;
using std::chrono::milliseconds;
using std::chrono::seconds;
using Lines = std::vector<std::string>;

constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();

TEST_F(ClickerServiceTest, ClicksAtTheCursorCountsAndWaits) {
    mouse_.scriptCursor({{1, 2}, {3.5, -4}});
    start({});
    ASSERT_TRUE(awaitWait());
    ASSERT_TRUE(clickAgain());
    stopAndAwait();
    EXPECT_EQ(callbacks_.counts(), (std::vector<std::int64_t>{1, 2}));
    EXPECT_EQ(callbacks_.points(), (std::vector<Point>{{1, 2}, {3.5, -4}}));
    EXPECT_EQ(callbacks_.finishes(), 0);
    const auto posted = mouse_.posted();
    ASSERT_EQ(posted.size(), 4U);
    for (std::size_t index = 0; index < 4; ++index) {
        EXPECT_EQ(posted[index].type,
                  index % 2 == 0 ? MouseEventType::leftMouseDown : MouseEventType::leftMouseUp);
        EXPECT_EQ(posted[index].location, index < 2 ? (Point{1, 2}) : (Point{3.5, -4}));
        EXPECT_EQ(posted[index].clickState, 1);
    }
    EXPECT_EQ(log_.lines(), (Lines{"Clicker started: mode=cursor interval=1.0s maxClicks=0",
                                   "Clicker stopped after 2 clicks"}));
}

TEST_F(ClickerServiceTest, LogsHowItWasStarted) {
    const auto firstLine = [this](const CorvaneConfig &config) {
        start(config);
        EXPECT_TRUE(awaitWait());
        stopAndAwait();
        const Lines lines = log_.lines();
        return lines.at(lines.size() - 2);
    };
    EXPECT_EQ(firstLine({.clickMode = ClickMode::zone, .clickRate = 2, .maxClicks = 100}),
              "Clicker started: mode=zone interval=0.5s maxClicks=100");
    EXPECT_EQ(firstLine({.clickRate = 10}),
              "Clicker started: mode=cursor interval=0.1s maxClicks=0");
    EXPECT_EQ(firstLine({.timeUnit = TimeUnit::hours, .maxClicks = -3}),
              "Clicker started: mode=cursor interval=3600.0s maxClicks=-3");
    EXPECT_EQ(firstLine({.clickRate = 100'000, .maxClicks = greatest}),
              "Clicker started: mode=cursor interval=1e-05s maxClicks=9223372036854775807");
}

TEST_F(ClickerServiceTest, HoldsTheButtonForTenMilliseconds) {
    clock_.setSleepsBlock(true);
    const platform::Instant begin = clock_.now();
    start({});
    ASSERT_TRUE(clock_.awaitBlocked());
    EXPECT_TRUE(mouse_.isButtonPressed());
    EXPECT_TRUE(callbacks_.counts().empty());
    clock_.advance(milliseconds(9));
    EXPECT_TRUE(mouse_.isButtonPressed());
    clock_.advance(milliseconds(1));
    ASSERT_TRUE(awaitWait());
    EXPECT_FALSE(mouse_.isButtonPressed());
    EXPECT_EQ(clock_.sleeps(), (std::vector<std::chrono::nanoseconds>{milliseconds(10)}));
    const auto posted = mouse_.posted();
    ASSERT_EQ(posted.size(), 2U);
    EXPECT_EQ(posted[0].time, begin);
    EXPECT_EQ(posted[1].time, begin + milliseconds(10));
}

TEST_F(ClickerServiceTest, WaitsTheIntervalFromTheEndOfTheClick) {
    const auto waits = [this](const CorvaneConfig &config) {
        start(config);
        EXPECT_TRUE(awaitWait());
        const auto wait = clock_.deadlines().at(0) - clock_.now();
        stopAndAwait();
        return wait;
    };
    EXPECT_EQ(waits({.clickRate = 10}), milliseconds(100));
    EXPECT_EQ(waits({.clickRate = 1000}), milliseconds(1));
    EXPECT_EQ(waits({.clickRate = 30, .timeUnit = TimeUnit::minutes}), seconds(2));
    EXPECT_EQ(waits({.timeUnit = TimeUnit::hours}), seconds(3600));
}

TEST_F(ClickerServiceTest, APeriodIsTheIntervalAndTheHold) {
    start({.clickRate = 10});
    for (int click = 0; click < 5; ++click) {
        ASSERT_TRUE(awaitWait());
        clock_.advance(milliseconds(100));
    }
    ASSERT_TRUE(mouse_.awaitPosted(12));
    const auto posted = mouse_.posted();
    for (std::size_t index = 2; index < 12; ++index) {
        EXPECT_EQ(posted[index].time - posted[index - 2].time, milliseconds(110));
    }
}

TEST_F(ClickerServiceTest, ARateBelowOneClicksOnceASecond) {
    for (const std::int64_t rate : {std::int64_t{0}, std::int64_t{-1}, -greatest}) {
        start({.clickRate = rate, .timeUnit = TimeUnit::hours});
        ASSERT_TRUE(awaitWait());
        EXPECT_EQ(clock_.deadlines().at(0), clock_.now() + seconds(1));
        stopAndAwait();
    }
}

TEST_F(ClickerServiceTest, ARateBeyondAllMeasureClicksWithoutWaiting) {
    start({.clickRate = greatest, .maxClicks = 100});
    ASSERT_TRUE(callbacks_.awaitFinish());
    EXPECT_EQ(callbacks_.counts().size(), 100U);
    EXPECT_EQ(log_.lines().front(),
              "Clicker started: mode=cursor interval=1.0842021724855044e-19s maxClicks=100");
}

TEST_F(ClickerServiceTest, ALimitOfOneFinishesRightAfterTheFirstClick) {
    const platform::Instant begin = clock_.now();
    start({.maxClicks = 1});
    ASSERT_TRUE(callbacks_.awaitFinish());
    stopAndAwait();
    EXPECT_EQ(callbacks_.counts(), (std::vector<std::int64_t>{1}));
    EXPECT_EQ(callbacks_.finishes(), 1);
    EXPECT_EQ(callbacks_.countAtFinish(), 1U);
    EXPECT_EQ(clock_.now(), begin + milliseconds(10));
    EXPECT_EQ(log_.lines(), (Lines{"Clicker started: mode=cursor interval=1.0s maxClicks=1",
                                   "Clicker finished after 1 clicks (limit reached)"}));
}

TEST_F(ClickerServiceTest, FinishesAtItsLimit) {
    start({.maxClicks = 3});
    ASSERT_TRUE(awaitWait());
    ASSERT_TRUE(clickAgain());
    EXPECT_EQ(callbacks_.finishes(), 0);
    clock_.advance(seconds(1));
    ASSERT_TRUE(callbacks_.awaitFinish());
    EXPECT_EQ(callbacks_.counts(), (std::vector<std::int64_t>{1, 2, 3}));
    EXPECT_EQ(log_.lines().back(), "Clicker finished after 3 clicks (limit reached)");
}

TEST_F(ClickerServiceTest, NoLimitNeverFinishes) {
    for (const std::int64_t limit : {std::int64_t{0}, std::int64_t{-1}, -greatest}) {
        start({.maxClicks = limit});
        ASSERT_TRUE(awaitWait());
        for (int click = 0; click < 20; ++click) {
            ASSERT_TRUE(clickAgain());
        }
        stopAndAwait();
        EXPECT_EQ(callbacks_.finishes(), 0);
        EXPECT_EQ(log_.lines().back(), "Clicker stopped after 21 clicks");
    }
}

TEST_F(ClickerServiceTest, WithoutACursorNothingIsClickedOrCountedUntilThereIsOne) {
    mouse_.setCursor({7, 8});
    mouse_.setFaults({.noCursorLocation = true});
    start({.maxClicks = 1});
    for (int check = 0; check < 20; ++check) {
        ASSERT_TRUE(awaitWait());
        EXPECT_EQ(clock_.deadlines().at(0), clock_.now() + milliseconds(5));
        clock_.advance(milliseconds(5));
    }
    ASSERT_TRUE(awaitWait());
    EXPECT_TRUE(callbacks_.counts().empty());
    EXPECT_TRUE(mouse_.posted().empty());
    mouse_.setFaults({});
    clock_.advance(milliseconds(5));
    ASSERT_TRUE(callbacks_.awaitFinish());
    EXPECT_EQ(callbacks_.points(), (std::vector<Point>{{7, 8}}));
    EXPECT_EQ(mouse_.posted().size(), 2U);
}

/// Notes in the log when a session is opened.
class LoggedMouse : public RecordingMouseEvents {
  public:
    using RecordingMouseEvents::RecordingMouseEvents;

    std::unique_ptr<platform::MouseSession> openSession() override {
        log("opened");
        return RecordingMouseEvents::openSession();
    }
};

TEST_F(ClickerServiceTest, LinesAndCallbacksOfARunComeInOrder) {
    LoggedMouse mouse(clock_);
    ClickerService clicker(mouse, clock_);
    std::atomic isOver = false;
    clicker.start(
        {.maxClicks = 1}, nullptr, [](auto, auto) { log("clicked"); },
        [&isOver] {
            log("finished");
            isOver = true;
        });
    ASSERT_TRUE(mouse.awaitPosted(2));
    clicker.stop();
    clicker.awaitEnd();
    EXPECT_TRUE(isOver);
    EXPECT_EQ(log_.lines(),
              (Lines{"Clicker started: mode=cursor interval=1.0s maxClicks=1", "opened", "clicked",
                     "Clicker finished after 1 clicks (limit reached)", "finished"}));
}

TEST_F(ClickerServiceTest, AStartReleasesTheRunsThatHaveEnded) {
    auto held = std::make_shared<int>();
    const std::weak_ptr ofFirstRun(held);
    clicker_.start({}, nullptr, [held = std::move(held)](auto, auto) {}, [] {});
    const auto deadline = std::chrono::steady_clock::now() + timeLimit;
    while (!ofFirstRun.expired() && std::chrono::steady_clock::now() < deadline) {
        start({});
        ASSERT_TRUE(awaitWait());
    }
    EXPECT_TRUE(ofFirstRun.expired());
}

TEST_F(ClickerServiceTest, TheCursorIsReadJustBeforeTheClickIsDue) {
    mouse_.setCursor({1, 1});
    start({});
    ASSERT_TRUE(awaitWait());
    const platform::Instant due = clock_.deadlines().at(0);
    clock_.advanceTo(due - milliseconds(1));
    const std::size_t readingsBefore = mouse_.readings().size();
    mouse_.setCursor({2, 2});
    ASSERT_TRUE(clickAgain());
    EXPECT_EQ(callbacks_.points(), (std::vector<Point>{{1, 1}, {2, 2}}));
    EXPECT_GT(mouse_.readings().at(readingsBefore), due - milliseconds(1));
    EXPECT_LT(mouse_.readings().at(readingsBefore), due);
    EXPECT_EQ(mouse_.posted().at(2).time, due);
}

TEST_F(ClickerServiceTest, AnEventThatCannotBeMadeIsCountedButNothingIsPosted) {
    for (const MouseFaults &faults :
         {MouseFaults{.noMouseDown = true}, MouseFaults{.noMouseUp = true}}) {
        mouse_.setFaults(faults);
        const std::size_t before = callbacks_.counts().size();
        start({});
        ASSERT_TRUE(awaitWait());
        stopAndAwait();
        EXPECT_EQ(callbacks_.counts().size(), before + 1);
        EXPECT_EQ(log_.lines().back(), "Clicker stopped after 1 clicks");
    }
    EXPECT_TRUE(mouse_.posted().empty());
    EXPECT_TRUE(clock_.sleeps().empty());
}

TEST_F(ClickerServiceTest, AStopEndsTheWaitAtOnce) {
    start({.timeUnit = TimeUnit::hours});
    ASSERT_TRUE(awaitWait());
    const platform::Instant before = clock_.now();
    stopAndAwait();
    EXPECT_EQ(clock_.now(), before);
    EXPECT_EQ(log_.lines().back(), "Clicker stopped after 1 clicks");
    EXPECT_EQ(mouse_.openSessions(), 0U);
}

TEST_F(ClickerServiceTest, AStopDuringTheHoldStillReleasesTheButton) {
    clock_.setSleepsBlock(true);
    start({});
    ASSERT_TRUE(clock_.awaitBlocked());
    clicker_.stop();
    EXPECT_TRUE(mouse_.isButtonPressed());
    clock_.advance(milliseconds(10));
    clicker_.awaitEnd();
    EXPECT_FALSE(mouse_.isButtonPressed());
    EXPECT_EQ(callbacks_.counts(), (std::vector<std::int64_t>{1}));
    EXPECT_EQ(log_.lines().back(), "Clicker stopped after 1 clicks");
}

TEST_F(ClickerServiceTest, AStopWhileIdleDoesNothing) {
    clicker_.stop();
    clicker_.awaitEnd();
    EXPECT_EQ(log_.lines(), Lines{});
    EXPECT_EQ(mouse_.openedSessions(), 0U);
}

TEST_F(ClickerServiceTest, ASecondStartEndsTheFirstRun) {
    RunCallbacks first;
    clicker_.start({}, nullptr, first.onClick(), first.onFinish());
    ASSERT_TRUE(awaitWait());
    start({.clickRate = 2});
    clicker_.awaitEnd();
    EXPECT_EQ(first.counts().size(), 1U);
    ASSERT_TRUE(awaitWait());
    ASSERT_TRUE(clickAgain());
    ASSERT_TRUE(clickAgain());
    EXPECT_EQ(first.counts().size(), 1U);
    EXPECT_EQ(first.finishes(), 0);
    EXPECT_EQ(callbacks_.counts(), (std::vector<std::int64_t>{1, 2, 3}));

    Lines lines = log_.lines();
    std::ranges::sort(lines);
    EXPECT_EQ(lines, (Lines{"Clicker started: mode=cursor interval=0.5s maxClicks=0",
                            "Clicker started: mode=cursor interval=1.0s maxClicks=0",
                            "Clicker stopped after 1 clicks"}));
}

TEST_F(ClickerServiceTest, ASecondStartDoesNotWaitForTheFirstRun) {
    clock_.setSleepsBlock(true);
    start({});
    ASSERT_TRUE(clock_.awaitBlocked());
    start({});
    ASSERT_TRUE(clock_.awaitBlocked(2));
    clock_.setSleepsBlock(false);
    clicker_.awaitEnd();
    ASSERT_TRUE(awaitWait());
    EXPECT_FALSE(mouse_.isButtonPressed());
}

TEST_F(ClickerServiceTest, AFinishedRunCanBeStoppedAndFollowedByAnother) {
    start({.maxClicks = 1});
    ASSERT_TRUE(callbacks_.awaitFinish());
    clicker_.stop();
    clicker_.stop();
    start({});
    ASSERT_TRUE(awaitWait());
    stopAndAwait();
    EXPECT_EQ(callbacks_.finishes(), 1);
    EXPECT_EQ(log_.lines().back(), "Clicker stopped after 1 clicks");
}

TEST_F(ClickerServiceTest, TheFinishCallbackMayStopTheService) {
    std::atomic isOver = false;
    clicker_.start({.maxClicks = 1}, nullptr, callbacks_.onClick(), [&] {
        clicker_.stop();
        isOver = true;
    });
    ASSERT_TRUE(mouse_.awaitPosted(2));
    clicker_.awaitEnd();
    stopAndAwait();
    EXPECT_TRUE(isOver);
}

TEST_F(ClickerServiceTest, EachRunHasAThreadAndASessionOfItsOwn) {
    start({});
    ASSERT_TRUE(awaitWait());
    EXPECT_EQ(mouse_.openSessions(), 1U);
    const auto posted = mouse_.posted();
    ASSERT_EQ(posted.size(), 2U);
    EXPECT_NE(posted[0].thread, std::this_thread::get_id());
    EXPECT_EQ(posted[0].thread, posted[1].thread);
    EXPECT_EQ(posted[0].thread, callbacks_.thread());
    stopAndAwait();
    EXPECT_EQ(mouse_.openSessions(), 0U);
    start({});
    ASSERT_TRUE(awaitWait());
    EXPECT_EQ(mouse_.openedSessions(), 2U);
}

TEST_F(ClickerServiceTest, EndsItsRunsBeforeItGoes) {
    {
        ClickerService clicker(mouse_, clock_);
        clicker.start({}, nullptr, callbacks_.onClick(), callbacks_.onFinish());
        ASSERT_TRUE(awaitWait());
    }
    EXPECT_EQ(mouse_.openSessions(), 0U);
    EXPECT_FALSE(mouse_.isButtonPressed());
    EXPECT_EQ(log_.lines().back(), "Clicker stopped after 1 clicks");
}

TEST_F(ClickerServiceTest, StandsStartsAndStopsFromManyThreads) {
    constexpr int threadCount = 4;
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([this] {
            for (int turn = 0; turn < 20; ++turn) {
                start({.clickRate = 1000});
                clicker_.stop();
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    stopAndAwait();
    EXPECT_EQ(mouse_.openSessions(), 0U);
    EXPECT_FALSE(mouse_.isButtonPressed());
    EXPECT_EQ(log_.lines().size(), 160U);
}

#ifdef __GLIBC__

/// While it lives, the system has no thread to give: each would need more memory than there is.
class NoThreads {
  public:
    NoThreads() {
        constexpr std::size_t tooLarge = std::size_t{1} << 46U;
        pthread_getattr_default_np(&before_);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, tooLarge);
        EXPECT_EQ(pthread_setattr_default_np(&attributes), 0);
        pthread_attr_destroy(&attributes);
    }
    NoThreads(const NoThreads &) = delete;
    NoThreads &operator=(const NoThreads &) = delete;
    ~NoThreads() {
        pthread_setattr_default_np(&before_);
        pthread_attr_destroy(&before_);
    }

  private:
    pthread_attr_t before_{};
};

TEST_F(ClickerServiceTest, WithoutAThreadTheRunIsReportedAsFinished) {
    {
        const NoThreads noThreads;
        start({});
    }
    EXPECT_EQ(callbacks_.finishes(), 1);
    EXPECT_TRUE(callbacks_.counts().empty());
    EXPECT_EQ(log_.lines(),
              Lines{"Clicker not started: no thread for it: Resource temporarily unavailable"});
    start({});
    ASSERT_TRUE(awaitWait());
    EXPECT_EQ(callbacks_.counts(), (std::vector<std::int64_t>{1}));
}

#endif

} // namespace
} // namespace corvane::testing
