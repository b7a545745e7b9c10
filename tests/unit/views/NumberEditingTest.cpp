#include "platform/views/NumberEditing.h"

#include <gtest/gtest.h>

namespace corvane::views {
namespace {

TEST(NumberEditingTest, AFieldAtRestShowsItsValue) {
    EXPECT_EQ(textToShow(5, 5, "abc", false), "5");
    EXPECT_EQ(textToShow(5, 7, "5", false), "7");
    EXPECT_EQ(textToShow(5, 5, "5", false), std::nullopt);
}

TEST(NumberEditingTest, WhatIsBeingTypedStaysUnlessTheValueComesFromElsewhere) {
    EXPECT_EQ(textToShow(5, 5, "", true), std::nullopt);
    EXPECT_EQ(textToShow(5, 5, "abc", true), std::nullopt);
    EXPECT_EQ(textToShow(5, 51, " 051", true), std::nullopt);
    EXPECT_EQ(textToShow(5, 6, "5", true), "6");
    EXPECT_EQ(textToShow(5, 6, "", true), "6");
}

TEST(NumberEditingTest, OnlyAnotherNumberIsAChange) {
    EXPECT_EQ(typedValue("7", 5), 7);
    EXPECT_EQ(typedValue("-7 ", 5), -7);
    EXPECT_EQ(typedValue("5", 5), std::nullopt);
    EXPECT_EQ(typedValue("", 5), std::nullopt);
    EXPECT_EQ(typedValue("7x", 5), std::nullopt);
}

TEST(NumberEditingTest, AStepLeadsTowardsTheRange) {
    const Stepper rate{.value = 0, .lowest = 1, .highest = 9999};
    EXPECT_EQ(steppedValue(rate, 1), 1);
    EXPECT_EQ(steppedValue(rate, -1), std::nullopt);
    EXPECT_EQ(steppedValue({.value = 5, .lowest = 1, .highest = 9}, -1), 4);
    EXPECT_EQ(steppedValue({.value = 5, .lowest = 1, .highest = 9}, 0), std::nullopt);
}

} // namespace
} // namespace corvane::views
