#include "presentation/View.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::testing {

namespace {

constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
constexpr auto highest = std::numeric_limits<std::int64_t>::max();

Stepper rate(std::int64_t value) { return {.value = value, .lowest = 1, .highest = 9999}; }

TEST(StepperTest, GoesOneStepEitherWay) {
    EXPECT_EQ(rate(5).incremented(), 6);
    EXPECT_EQ(rate(5).decremented(), 4);
}

TEST(StepperTest, EndsAtBothEnds) {
    EXPECT_EQ(rate(9998).incremented(), 9999);
    EXPECT_EQ(rate(9999).incremented(), std::nullopt);
    EXPECT_EQ(rate(2).decremented(), 1);
    EXPECT_EQ(rate(1).decremented(), std::nullopt);
}

TEST(StepperTest, ComesBackIntoTheRange) {
    EXPECT_EQ(rate(20000).incremented(), std::nullopt);
    EXPECT_EQ(rate(20000).decremented(), 9999);
    EXPECT_EQ(rate(-7).incremented(), 1);
    EXPECT_EQ(rate(-7).decremented(), std::nullopt);
}

TEST(StepperTest, KeepsWithinSixtyFourBits) {
    EXPECT_EQ(rate(highest).incremented(), std::nullopt);
    EXPECT_EQ(rate(highest).decremented(), 9999);
    EXPECT_EQ(rate(lowest).incremented(), 1);
    EXPECT_EQ(rate(lowest).decremented(), std::nullopt);
    const Stepper whole{.value = highest - 1, .lowest = lowest, .highest = highest, .step = 10};
    EXPECT_EQ(whole.incremented(), highest);
}

} // namespace

} // namespace corvane::testing
