#include "platform/macos/logic/AlertAnswer.h"
#include "platform/macos/logic/HeldBackPresses.h"
#include "platform/macos/logic/WindowFitting.h"

#include <gtest/gtest.h>

namespace corvane::macos {
namespace {

using Time = HeldBackPresses::Time;

TEST(AlertAnswerTest, WhatIsNoButtonCountsAsTheLastOne) {
    EXPECT_EQ(answeredButton(0, 2), 0U);
    EXPECT_EQ(answeredButton(1, 2), 1U);
    EXPECT_EQ(answeredButton(2, 2), 1U);
    EXPECT_EQ(answeredButton(-1001, 2), 1U);
    EXPECT_EQ(answeredButton(5, 0), 0U);
}

TEST(HeldBackPressesTest, OrdinaryPressesAllCount) {
    HeldBackPresses presses;
    EXPECT_TRUE(presses.counts(Time(10), Time(10.01)));
    EXPECT_TRUE(presses.counts(Time(10.05), Time(10.06)));
}

TEST(HeldBackPressesTest, PressesHeldBackTogetherCountOnce) {
    HeldBackPresses presses;
    EXPECT_TRUE(presses.counts(Time(10), Time(15)));
    EXPECT_FALSE(presses.counts(Time(11), Time(15.01)));
    EXPECT_FALSE(presses.counts(Time(12), Time(15.02)));
    EXPECT_TRUE(presses.counts(Time(20), Time(20.01)));
}

TEST(HeldBackPressesTest, TheNextMenuHoldsBackAnew) {
    HeldBackPresses presses;
    EXPECT_TRUE(presses.counts(Time(10), Time(15)));
    EXPECT_TRUE(presses.counts(Time(16), Time(18)));
}

constexpr Rectangle screen{0, 60, 1440, 800};

TEST(WindowFittingTest, TheTopEdgeStaysWhereItIs) {
    EXPECT_EQ(fittedFrame({450, 400, 540, 300}, 500, screen), (Rectangle{450, 200, 540, 500}));
    EXPECT_EQ(fittedFrame({450, 200, 540, 500}, 300, screen), (Rectangle{450, 400, 540, 300}));
}

TEST(WindowFittingTest, AWindowIsNeverHigherThanTheScreen) {
    EXPECT_EQ(fittedFrame({450, 400, 540, 300}, 34'000, screen), (Rectangle{450, 60, 540, 800}));
}

TEST(WindowFittingTest, AWindowThatWouldEndBelowTheScreenMovesUp) {
    EXPECT_EQ(fittedFrame({450, 100, 540, 300}, 600, screen), (Rectangle{450, 60, 540, 600}));
}

} // namespace
} // namespace corvane::macos
