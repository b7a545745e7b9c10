#include "platform/linux/timing/WakeUpLatency.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace corvane::contract {

namespace {

using namespace std::chrono_literals;
using platform::Instant;

/// Goes on by a microsecond with every look at it.
class SteppingClock : public platform::ContinuousClock {
  public:
    Instant now() const override { return now_ += 1us; }
    void hold(std::chrono::nanoseconds /*duration*/) override {}
    std::unique_ptr<platform::CancellableWait> makeWait() override { return nullptr; }

    void setTo(Instant instant) const { now_ = instant; }

  private:
    mutable Instant now_ = 1s;
};

class WakeUpLeadTest : public testing::Test {
  protected:
    /// Waits on a system that wakes so late, with something to find out that takes so long; how
    /// long before the deadline it was asked to wake.
    std::chrono::nanoseconds askedLead(std::chrono::nanoseconds lateness,
                                       std::chrono::nanoseconds preparation = 0ns) {
        const Instant deadline = clock_.now() + 10ms;
        Instant asked{};
        lead_.waitUntil(
            clock_, deadline,
            [&](Instant instant) {
                asked = instant;
                clock_.setTo(instant + lateness);
            },
            [&] { clock_.setTo(clock_.now() + preparation); }, [] { return false; });
        EXPECT_GE(clock_.now(), deadline);
        return deadline - asked;
    }

    std::chrono::nanoseconds settledLead(std::chrono::nanoseconds lateness) {
        std::chrono::nanoseconds lead{};
        for (int wait = 0; wait < 500; ++wait) {
            lead = askedLead(lateness);
        }
        return lead;
    }

    SteppingClock clock_;
    linux::WakeUpLatency lead_;
};

TEST_F(WakeUpLeadTest, SettlesAtTheLatenessOfTheSystem) {
    EXPECT_NEAR(double(settledLead(90us).count()), 90'000, 6'000);
    EXPECT_NEAR(double(settledLead(20us).count()), 20'000, 6'000);
    EXPECT_LE(settledLead(0us), 6us);
}

TEST_F(WakeUpLeadTest, CoversWhatIsToBeFoundOutBeforehand) {
    std::chrono::nanoseconds lead{};
    for (int wait = 0; wait < 500; ++wait) {
        lead = askedLead(90us, 70us);
    }
    EXPECT_NEAR(double(lead.count()), 160'000, 8'000);
}

TEST_F(WakeUpLeadTest, ComesNearWithTheFirstWait) {
    askedLead(150us);
    EXPECT_NEAR(double(askedLead(150us).count()), 150'000, 6'000);
}

TEST_F(WakeUpLeadTest, AFirstWaitThatWasLateOnceIsSoonForgotten) {
    askedLead(400us);
    for (int wait = 0; wait < 200; ++wait) {
        askedLead(90us);
    }
    EXPECT_NEAR(double(askedLead(90us).count()), 90'000, 20'000);
}

TEST_F(WakeUpLeadTest, StaysShortOnAMachineThatIsVeryLate) {
    EXPECT_EQ(settledLead(30ms), linux::WakeUpLatency::longest);
}

TEST_F(WakeUpLeadTest, EndsEarlyWhenToldSo) {
    const Instant deadline = clock_.now() + 10ms;
    lead_.waitUntil(
        clock_, deadline, [this](Instant /*instant*/) { clock_.setTo(1s); },
        [] { ADD_FAILURE() << "there is nothing to be known any more"; }, [] { return true; });
    EXPECT_LT(clock_.now(), deadline);
}

TEST_F(WakeUpLeadTest, SleepsNotAtAllForWhatIsNear) {
    bool hasSlept = false;
    const Instant deadline = clock_.now() + 10us;
    lead_.waitUntil(
        clock_, deadline, [&hasSlept](Instant /*instant*/) { hasSlept = true; }, [] {},
        [] { return false; });
    EXPECT_FALSE(hasSlept);
    EXPECT_GE(clock_.now(), deadline);
}

} // namespace

} // namespace corvane::contract
