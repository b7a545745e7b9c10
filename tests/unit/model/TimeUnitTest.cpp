#include "model/TimeUnit.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(TimeUnitTest, HasThreeCasesInOrder) {
    EXPECT_EQ(allTimeUnits, (std::array{TimeUnit::seconds, TimeUnit::minutes, TimeUnit::hours}));
}

TEST(TimeUnitTest, ReadsBackItsStoredValue) {
    EXPECT_EQ(storedValue(TimeUnit::seconds), "s");
    EXPECT_EQ(storedValue(TimeUnit::minutes), "m");
    EXPECT_EQ(storedValue(TimeUnit::hours), "h");
    for (const TimeUnit unit : allTimeUnits) {
        EXPECT_EQ(timeUnitFromStoredValue(storedValue(unit)), unit);
    }
}

TEST(TimeUnitTest, KnowsNoOtherText) {
    for (const std::string_view text : {"", "seconds", "S", "d", "s "}) {
        EXPECT_EQ(timeUnitFromStoredValue(text), std::nullopt) << text;
    }
}

TEST(TimeUnitTest, IsWorthItsSeconds) {
    EXPECT_EQ(secondsPerUnit(TimeUnit::seconds), 1.0);
    EXPECT_EQ(secondsPerUnit(TimeUnit::minutes), 60.0);
    EXPECT_EQ(secondsPerUnit(TimeUnit::hours), 3600.0);
}

} // namespace
} // namespace corvane
