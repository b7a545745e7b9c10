#include "platform/macos/logic/SilentApplications.h"

#include "support/recorder/HandTurnedClock.h"

#include <gtest/gtest.h>

namespace corvane::macos {
namespace {

using namespace std::chrono_literals;

class SilentApplicationsTest : public ::testing::Test {
  protected:
    testing::HandTurnedClock clock_;
    SilentApplications applications_{clock_};
};

TEST_F(SilentApplicationsTest, OneThatDoesNotAnswerIsLeftAloneForASecond) {
    EXPECT_FALSE(applications_.contains(7));
    applications_.noteSilence(7);
    EXPECT_TRUE(applications_.contains(7));
    EXPECT_FALSE(applications_.contains(8));
    clock_.advance(999ms);
    EXPECT_TRUE(applications_.contains(7));
    clock_.advance(1ms);
    EXPECT_FALSE(applications_.contains(7));
}

TEST_F(SilentApplicationsTest, TheFirstMessageMayTakeLonger) {
    EXPECT_EQ(applications_.timeout(7), 2s);
    applications_.noteAnswer(7);
    EXPECT_EQ(applications_.timeout(7), 250ms);
    EXPECT_EQ(applications_.timeout(8), 2s);
}

TEST_F(SilentApplicationsTest, OneThatHangsFromTheStartHoldsNobodyUpForLongASecondTime) {
    applications_.noteSilence(7);
    clock_.advance(1s);
    EXPECT_EQ(applications_.timeout(7), 250ms);
}

} // namespace
} // namespace corvane::macos
