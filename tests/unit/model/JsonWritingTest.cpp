#include "model/JsonWriting.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

using Json = nlohmann::json;

TEST(JsonWritingTest, LaysOutEmptyContainersOverThreeLines) {
    EXPECT_EQ(jsonText(Json::object()), "{\n\n}");
    EXPECT_EQ(jsonText(Json::array()), "[\n\n]");
    EXPECT_EQ(jsonText({{"a", Json::array()}, {"b", Json::object()}}), "{\n"
                                                                       "  \"a\" : [\n"
                                                                       "\n"
                                                                       "  ],\n"
                                                                       "  \"b\" : {\n"
                                                                       "\n"
                                                                       "  }\n"
                                                                       "}");
}

TEST(JsonWritingTest, LaysOutElementsOneALine) {
    EXPECT_EQ(jsonText(Json::array({1, "two", true, nullptr, Json::array({3})})), "[\n"
                                                                                  "  1,\n"
                                                                                  "  \"two\",\n"
                                                                                  "  true,\n"
                                                                                  "  null,\n"
                                                                                  "  [\n"
                                                                                  "    3\n"
                                                                                  "  ]\n"
                                                                                  "]");
}

TEST(JsonWritingTest, SortsMembersByTheirKeys) {
    EXPECT_EQ(jsonText({{"b", 1}, {"a", 2}, {"B", 3}}), "{\n"
                                                        "  \"B\" : 3,\n"
                                                        "  \"a\" : 2,\n"
                                                        "  \"b\" : 1\n"
                                                        "}");
}

TEST(JsonWritingTest, EscapesWhatHasToBeEscapedAndTheSlash) {
    EXPECT_EQ(jsonText("\" \\ / \b \f \n \r \t"), R"("\" \\ \/ \b \f \n \r \t")");
    EXPECT_EQ(jsonText(std::string("\0 \x01 \x0b \x1f", 7)), R"("\u0000 \u0001 \u000b \u001f")");
    EXPECT_EQ(jsonText("\x7f é 漢 😀 \u2028"), "\"\x7f é 漢 😀 \u2028\"");
    EXPECT_EQ(jsonText({{"a/b", 1}}), "{\n  \"a\\/b\" : 1\n}");
}

TEST(JsonWritingTest, MakesTextValid) { EXPECT_EQ(jsonText("a\xff\xc3"), "\"a\uFFFD\uFFFD\""); }

TEST(JsonWritingTest, WritesNumbersInTheirShortestForm) {
    EXPECT_EQ(jsonText(100.0), "100");
    EXPECT_EQ(jsonText(0.1), "0.1");
    EXPECT_EQ(jsonText(-2.5), "-2.5");
    EXPECT_EQ(jsonText(1e-5), "1e-05");
    EXPECT_EQ(jsonText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(JsonWritingTest, RefusesNumbersThatAreNotFinite) {
    using Limits = std::numeric_limits<double>;
    EXPECT_FALSE(jsonText(Limits::infinity()));
    EXPECT_FALSE(jsonText({{"a", Json::array({1, -Limits::infinity()})}}));
    EXPECT_FALSE(jsonText(Limits::quiet_NaN()));
}

} // namespace
} // namespace corvane
