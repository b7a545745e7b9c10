#include "model/CorvaneConfig.h"

#include "support/Localised.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

double interval(std::int64_t clickRate, TimeUnit timeUnit) {
    return CorvaneConfig{.clickRate = clickRate, .timeUnit = timeUnit}.clickInterval();
}

std::string limitLabel(std::int64_t maxClicks) {
    return CorvaneConfig{.maxClicks = maxClicks}.maxClicksLabel();
}

TEST(CorvaneConfigTest, BeginsWithTheDefaults) {
    const CorvaneConfig config;
    EXPECT_EQ(config.clickMode, ClickMode::cursor);
    EXPECT_EQ(config.zoneRect, std::nullopt);
    EXPECT_EQ(config.windowAnchor, std::nullopt);
    EXPECT_EQ(config.clickRate, 1);
    EXPECT_EQ(config.timeUnit, TimeUnit::seconds);
    EXPECT_EQ(config.maxClicks, 0);
}

TEST(CorvaneConfigTest, ClicksAtIntervalsOfUnitByRate) {
    EXPECT_EQ(interval(1, TimeUnit::seconds), 1.0);
    EXPECT_EQ(interval(10, TimeUnit::seconds), 0.1);
    EXPECT_EQ(interval(30, TimeUnit::minutes), 2.0);
    EXPECT_EQ(interval(1, TimeUnit::hours), 3600.0);
    EXPECT_EQ(interval(1000, TimeUnit::seconds), 0.001);
}

TEST(CorvaneConfigTest, ARateBelowOneClicksOnceASecondWhateverTheUnit) {
    for (const TimeUnit unit : allTimeUnits) {
        EXPECT_EQ(interval(0, unit), 1.0);
        EXPECT_EQ(interval(-1, unit), 1.0);
        EXPECT_EQ(interval(std::numeric_limits<std::int64_t>::min(), unit), 1.0);
    }
}

TEST(CorvaneConfigTest, AnIntervalHasNoLowerBound) {
    const double smallest = interval(std::numeric_limits<std::int64_t>::max(), TimeUnit::seconds);
    EXPECT_GT(smallest, 0);
    EXPECT_LT(smallest, 1e-18);
}

TEST(CorvaneConfigTest, LabelsItsLimit) {
    EXPECT_EQ(limitLabel(0), "unlimited");
    EXPECT_EQ(limitLabel(1), "1x");
    EXPECT_EQ(limitLabel(50), "50x");
    EXPECT_EQ(limitLabel(-5), "-5x");
}

TEST(CorvaneConfigTest, OnlyTheWordOfTheLimitIsTranslated) {
    useTextLookup([](std::string_view english) { return "<" + std::string(english) + ">"; });
    EXPECT_EQ(limitLabel(0), "<unlimited>");
    EXPECT_EQ(limitLabel(50), "50x");
    useTextLookup({});
}

} // namespace
} // namespace corvane
