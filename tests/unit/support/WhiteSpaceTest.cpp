#include "support/WhiteSpace.h"

#include <gtest/gtest.h>

namespace corvane::testing {

namespace {

TEST(WhiteSpaceTest, BlanksGoAtBothEndsOnly) {
    EXPECT_EQ(withoutBlanks("\t My  profile \t"), "My  profile");
    EXPECT_EQ(withoutBlanks("\u00A0\u3000\u2009name\u202F\u1680"), "name");
    EXPECT_EQ(withoutBlanks(" \t\u2003"), "");
    EXPECT_EQ(withoutBlanks(""), "");
}

TEST(WhiteSpaceTest, BlanksDoNotIncludeLineBreaks) {
    EXPECT_EQ(withoutBlanks(" \n name\r\n "), "\n name\r\n");
    EXPECT_EQ(withoutBlanks(" \u2028"), "\u2028");
}

TEST(WhiteSpaceTest, WhiteSpaceIncludesLineBreaks) {
    EXPECT_EQ(withoutWhiteSpace(" \n\t two\nlines \u2029\u0085\r\n"), "two\nlines");
    EXPECT_EQ(withoutWhiteSpace("\v\f\u2028"), "");
}

TEST(WhiteSpaceTest, OtherInvisibleCharactersStay) {
    EXPECT_EQ(withoutWhiteSpace("\u200Bname\uFEFF"), "\u200Bname\uFEFF");
    EXPECT_EQ(withoutWhiteSpace("\u00E0"), "\u00E0");
}

} // namespace

} // namespace corvane::testing
