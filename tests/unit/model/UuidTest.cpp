#include "model/Uuid.h"

#include <gtest/gtest.h>

#include <set>

namespace corvane {
namespace {

constexpr std::string_view text = "0F8FAD5B-D9CB-469F-A165-70867728950E";

TEST(UuidTest, ReadsBackItsTextInEitherCase) {
    const auto uuid = Uuid::fromText(text);
    ASSERT_TRUE(uuid);
    EXPECT_EQ(uuid->text(), text);
    EXPECT_EQ(Uuid::fromText("0f8fad5b-d9cb-469f-a165-70867728950e"), uuid);
    EXPECT_EQ(Uuid::fromText("0f8FAD5b-D9cB-469f-A165-70867728950E"), uuid);
}

TEST(UuidTest, KnowsNoOtherText) {
    for (const std::string_view other :
         {"", "profile", "0F8FAD5B-D9CB-469F-A165-70867728950", "0F8FAD5BD9CB469FA16570867728950E",
          "{0F8FAD5B-D9CB-469F-A165-70867728950E}", "0F8FAD5B-D9CB-469F-A165-70867728950E ",
          "0F8FAD5B-D9CB-469F-A165-70867728950G", "0F8FAD5BD-9CB-469F-A165-70867728950E",
          "0F8FAD5B-D9CB-469F-A165+70867728950E", "------------------------------------"}) {
        EXPECT_EQ(Uuid::fromText(other), std::nullopt) << other;
    }
}

TEST(UuidTest, RandomOnesAreOfVersionFourAndDiffer) {
    std::set<std::string> seen;
    for (int turn = 0; turn < 1000; ++turn) {
        const std::string random = Uuid::random().text();
        EXPECT_EQ(random.size(), 36U);
        EXPECT_EQ(random[14], '4');
        EXPECT_NE(std::string("89AB").find(random[19]), std::string::npos) << random;
        EXPECT_TRUE(Uuid::fromText(random));
        seen.insert(random);
    }
    EXPECT_EQ(seen.size(), 1000U);
}

} // namespace
} // namespace corvane
