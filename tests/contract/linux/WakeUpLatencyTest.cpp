#include "platform/linux/timing/WakeUpLatency.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace corvane::contract {

namespace {

using namespace std::chrono_literals;
using platform::Instant;

/// Advances by a microsecond with every reading.
class SteppingClock : public platform::ContinuousClock {
  public:
    Instant now() const override { return now_ += 1us; }
    void sleepFor(std::chrono::nanoseconds /*duration*/) override {}
    std::unique_ptr<platform::CancellableWait> makeWait() override { return nullptr; }

    void setTo(Instant instant) const { now_ = instant; }

  private:
    mutable Instant now_ = 1s;
};

class WakeUpLatencyTest : public testing::Test {
  protected:
    /// Waits on a system with that wake-up latency and with a preparation that takes that long.
    /// Returns how long before the deadline the wait requested to be woken.
    std::chrono::nanoseconds requestedLatency(std::chrono::nanoseconds lateness,
                                              std::chrono::nanoseconds preparation = 0ns) {
        const Instant deadline = clock_.now() + 10ms;
        Instant requested{};
        latency_.waitUntil(
            clock_, deadline,
            [&](Instant instant) {
                requested = instant;
                clock_.setTo(instant + lateness);
            },
            [&] { clock_.setTo(clock_.now() + preparation); }, [] { return false; });
        EXPECT_GE(clock_.now(), deadline);
        return deadline - requested;
    }

    std::chrono::nanoseconds settledLatency(std::chrono::nanoseconds lateness) {
        std::chrono::nanoseconds latency{};
        for (int wait = 0; wait < 500; ++wait) {
            latency = requestedLatency(lateness);
        }
        return latency;
    }

    SteppingClock clock_;
    linux::WakeUpLatency latency_;
};

TEST_F(WakeUpLatencyTest, SettlesAtTheLatenessOfTheSystem) {
    EXPECT_NEAR(double(settledLatency(90us).count()), 90'000, 6'000);
    EXPECT_NEAR(double(settledLatency(20us).count()), 20'000, 6'000);
    EXPECT_LE(settledLatency(0us), 6us);
}

TEST_F(WakeUpLatencyTest, CoversThePreparation) {
    std::chrono::nanoseconds latency{};
    for (int wait = 0; wait < 500; ++wait) {
        latency = requestedLatency(90us, 70us);
    }
    EXPECT_NEAR(double(latency.count()), 160'000, 8'000);
}

TEST_F(WakeUpLatencyTest, ComesNearWithTheFirstWait) {
    requestedLatency(150us);
    EXPECT_NEAR(double(requestedLatency(150us).count()), 150'000, 6'000);
}

TEST_F(WakeUpLatencyTest, AFirstWaitThatWasLateOnceIsSoonForgotten) {
    requestedLatency(400us);
    for (int wait = 0; wait < 200; ++wait) {
        requestedLatency(90us);
    }
    EXPECT_NEAR(double(requestedLatency(90us).count()), 90'000, 20'000);
}

TEST_F(WakeUpLatencyTest, StaysShortOnAMachineThatIsVeryLate) {
    EXPECT_EQ(settledLatency(30ms), linux::WakeUpLatency::longest);
}

TEST_F(WakeUpLatencyTest, EndsEarlyOnceItIsOver) {
    const Instant deadline = clock_.now() + 10ms;
    latency_.waitUntil(
        clock_, deadline, [this](Instant /*instant*/) { clock_.setTo(1s); },
        [] { ADD_FAILURE() << "nothing has to be prepared any more"; }, [] { return true; });
    EXPECT_LT(clock_.now(), deadline);
}

TEST_F(WakeUpLatencyTest, DoesNotSleepForADeadlineThatIsNear) {
    bool hasSlept = false;
    const Instant deadline = clock_.now() + 10us;
    latency_.waitUntil(
        clock_, deadline, [&hasSlept](Instant /*instant*/) { hasSlept = true; }, [] {},
        [] { return false; });
    EXPECT_FALSE(hasSlept);
    EXPECT_GE(clock_.now(), deadline);
}

} // namespace

} // namespace corvane::contract
