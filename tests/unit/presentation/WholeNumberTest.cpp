#include "presentation/WholeNumber.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane::testing {

namespace {

constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
constexpr auto highest = std::numeric_limits<std::int64_t>::max();

TEST(WholeNumberTest, IsWrittenInPlainDigits) {
    EXPECT_EQ(wholeNumberText(0), "0");
    EXPECT_EQ(wholeNumberText(1234567), "1234567");
    EXPECT_EQ(wholeNumberText(lowest), "-9223372036854775808");
}

TEST(WholeNumberTest, IsReadWithSignAndBlanks) {
    EXPECT_EQ(wholeNumber("12"), 12);
    EXPECT_EQ(wholeNumber("  007\t"), 7);
    EXPECT_EQ(wholeNumber("\u00A05\u2003"), 5);
    EXPECT_EQ(wholeNumber("-5"), -5);
    EXPECT_EQ(wholeNumber("+5"), 5);
    EXPECT_EQ(wholeNumber(wholeNumberText(highest)), highest);
    EXPECT_EQ(wholeNumber(wholeNumberText(lowest)), lowest);
}

TEST(WholeNumberTest, IsNothingElse) {
    for (const char *text : {"", " ", "-", "+", "+-5", "--5", "abc", "12a", "1 2", "1.5", "1e3",
                             "0x10", "9223372036854775808", "-9223372036854775809",
                             "99999999999999999999999999", "١٢", "5\n"}) {
        EXPECT_EQ(wholeNumber(text), std::nullopt) << text;
    }
}

} // namespace

} // namespace corvane::testing
