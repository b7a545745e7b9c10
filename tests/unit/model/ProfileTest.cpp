#include "model/Profile.h"

#include "support/FakeApplications.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

const CorvaneConfig anchored{.clickMode = ClickMode::zone,
                             .zoneRect = CodableRect{10, 20, 30, 40},
                             .windowAnchor =
                                 WindowAnchor{"org.example.browser", "Start", {1, 2, 30, 40}},
                             .clickRate = 5,
                             .timeUnit = TimeUnit::seconds,
                             .maxClicks = 7};

TEST(ProfileTest, CopiesAllSixSettingsEitherWay) {
    const Profile profile = Profile::fromConfig("Work", anchored);
    EXPECT_EQ(profile.name, "Work");
    EXPECT_EQ(profile.config, anchored);
    EXPECT_EQ(profile.toConfig(), anchored);
}

TEST(ProfileTest, GetsANewIdentityEachTime) {
    EXPECT_NE(Profile::fromConfig("Work", anchored).id, Profile::fromConfig("Work", anchored).id);
}

TEST(ProfileTest, SummarisesModeRateAndApplication) {
    testing::FakeApplications applications;
    applications.names["org.example.browser"] = "Browser";
    EXPECT_EQ(Profile::fromConfig("", anchored).summary(applications),
              "Defined Zone · 5/s · (Browser)");
}

TEST(ProfileTest, SummarisesAnUnknownApplicationByItsIdentifier) {
    testing::FakeApplications applications;
    EXPECT_EQ(Profile::fromConfig("", anchored).summary(applications),
              "Defined Zone · 5/s · (org.example.browser)");
}

TEST(ProfileTest, SummarisesAProfileWithoutAnAnchor) {
    testing::FakeApplications applications;
    const auto summary = [&](ClickMode mode, std::int64_t rate, TimeUnit unit) {
        const CorvaneConfig config{
            .clickMode = mode, .clickRate = rate, .timeUnit = unit, .maxClicks = 3};
        return Profile::fromConfig("", config).summary(applications);
    };
    EXPECT_EQ(summary(ClickMode::cursor, 10, TimeUnit::seconds), "Free Cursor · 10/s");
    EXPECT_EQ(summary(ClickMode::cursor, 30, TimeUnit::minutes), "Free Cursor · 30/m");
    EXPECT_EQ(summary(ClickMode::zone, 1, TimeUnit::hours), "Defined Zone · 1/h");
    EXPECT_EQ(summary(ClickMode::cursor, 0, TimeUnit::seconds), "Free Cursor · 0/s");
}

} // namespace
} // namespace corvane
