#include "model/Json.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

CorvaneConfig decoded(std::string_view text) {
    const auto config = decodeConfig(text);
    EXPECT_TRUE(config) << text;
    return config.value_or(CorvaneConfig{});
}

std::string whyNot(std::string_view text) {
    const auto config = decodeConfig(text);
    return config ? "it was read" : config.error().description;
}

TEST(ConfigJsonTest, WritesTheDefaultAsFourMembers) {
    EXPECT_EQ(encodeConfig({}), "{\n"
                                "  \"clickMode\" : \"cursor\",\n"
                                "  \"clickRate\" : 1,\n"
                                "  \"maxClicks\" : 0,\n"
                                "  \"timeUnit\" : \"s\"\n"
                                "}");
}

TEST(ConfigJsonTest, WritesEveryMemberSortedAndIndented) {
    const CorvaneConfig config{
        .clickMode = ClickMode::zone,
        .zoneRect = CodableRect{100, -50.5, 300, 0.1},
        .windowAnchor = WindowAnchor{"org.example.editor", "a/b \"c\" é", {1, 2, 3e-5, 1e20}},
        .clickRate = std::numeric_limits<std::int64_t>::max(),
        .timeUnit = TimeUnit::hours,
        .maxClicks = std::numeric_limits<std::int64_t>::min()};
    EXPECT_EQ(encodeConfig(config), "{\n"
                                    "  \"clickMode\" : \"zone\",\n"
                                    "  \"clickRate\" : 9223372036854775807,\n"
                                    "  \"maxClicks\" : -9223372036854775808,\n"
                                    "  \"timeUnit\" : \"h\",\n"
                                    "  \"windowAnchor\" : {\n"
                                    "    \"bundleID\" : \"org.example.editor\",\n"
                                    "    \"relativeRect\" : {\n"
                                    "      \"height\" : 1e+20,\n"
                                    "      \"width\" : 3e-05,\n"
                                    "      \"x\" : 1,\n"
                                    "      \"y\" : 2\n"
                                    "    },\n"
                                    "    \"windowTitle\" : \"a\\/b \\\"c\\\" é\"\n"
                                    "  },\n"
                                    "  \"zoneRect\" : {\n"
                                    "    \"height\" : 0.1,\n"
                                    "    \"width\" : 300,\n"
                                    "    \"x\" : 100,\n"
                                    "    \"y\" : -50.5\n"
                                    "  }\n"
                                    "}");
    EXPECT_EQ(decoded(*encodeConfig(config)), config);
}

TEST(ConfigJsonTest, DoesNotWriteWhatCouldNotBeReadAgain) {
    const double infinity = std::numeric_limits<double>::infinity();
    const auto text = encodeConfig({.zoneRect = CodableRect{0, 0, infinity, 1}});
    ASSERT_FALSE(text);
    EXPECT_EQ(text.error().description, "a number is not finite");
}

TEST(ConfigJsonTest, AnEmptyObjectIsTheDefault) { EXPECT_EQ(decoded("{}"), CorvaneConfig{}); }

TEST(ConfigJsonTest, ReadsEachMember) {
    const CorvaneConfig config =
        decoded(R"({"clickMode":"zone","clickRate":0,"timeUnit":"h","maxClicks":5})");
    EXPECT_EQ(config, (CorvaneConfig{.clickMode = ClickMode::zone,
                                     .clickRate = 0,
                                     .timeUnit = TimeUnit::hours,
                                     .maxClicks = 5}));
    EXPECT_EQ(config.clickInterval(), 1.0);
}

TEST(ConfigJsonTest, AMemberOfTheWrongTypeTakesItsDefault) {
    for (const char *text :
         {R"({"clickMode":"left"})", R"({"clickMode":1})", R"({"clickRate":"10"})",
          R"({"clickRate":true})", R"({"clickRate":null})", R"({"clickRate":[3]})",
          R"({"clickRate":2.5})", R"({"timeUnit":"minutes"})", R"({"timeUnit":"seconds"})",
          R"({"timeUnit":{}})", R"({"maxClicks":{"a":1}})", R"({"maxClicks":0.1})"}) {
        EXPECT_EQ(decoded(text), CorvaneConfig{}) << text;
    }
}

TEST(ConfigJsonTest, OneBadMemberNeverCostsTheOthers) {
    EXPECT_EQ(decoded(R"({"clickMode":7,"clickRate":5,"timeUnit":"m","maxClicks":"x",)"
                      R"("zoneRect":[],"windowAnchor":3})"),
              (CorvaneConfig{.clickRate = 5, .timeUnit = TimeUnit::minutes}));
}

TEST(ConfigJsonTest, AnIncompleteRectangleIsNone) {
    for (const char *text :
         {R"({"zoneRect":{"x":1,"y":2,"width":3}})", R"({"zoneRect":null})", R"({"zoneRect":{}})",
          R"({"zoneRect":{"x":1,"y":2,"width":3,"height":"4"}})",
          R"({"zoneRect":{"x":1,"y":2,"width":3,"height":null}})", R"({"zoneRect":[1,2,3,4]})"}) {
        EXPECT_EQ(decoded(text), CorvaneConfig{}) << text;
    }
}

TEST(ConfigJsonTest, AnIncompleteAnchorIsNone) {
    for (const char *text :
         {R"({"windowAnchor":{"bundleID":"b","windowTitle":5,)"
          R"("relativeRect":{"x":1,"y":2,"width":3,"height":4}}})",
          R"({"windowAnchor":{"bundleID":"b","windowTitle":"t","relativeRect":{"x":1}}})",
          R"({"windowAnchor":{"windowTitle":"t",)"
          R"("relativeRect":{"x":1,"y":2,"width":3,"height":4}}})",
          R"({"windowAnchor":null})", R"({"windowAnchor":"b"})"}) {
        EXPECT_EQ(decoded(text), CorvaneConfig{}) << text;
    }
}

TEST(ConfigJsonTest, UnknownMembersAreIgnored) {
    EXPECT_EQ(decoded(R"({"future":{"deep":[1,2,{}]},"clickRate":3,"ClickRate":9})"),
              CorvaneConfig{.clickRate = 3});
}

TEST(ConfigJsonTest, AWholeNumberMayBeWrittenWithAFraction) {
    EXPECT_EQ(decoded(R"({"clickRate":10.0})").clickRate, 10);
    EXPECT_EQ(decoded(R"({"clickRate":1e3})").clickRate, 1000);
    EXPECT_EQ(decoded(R"({"clickRate":-0.0})").clickRate, 0);
}

TEST(ConfigJsonTest, AnIntegerBeyond64BitsTakesItsDefault) {
    EXPECT_EQ(decoded(R"({"clickRate":9223372036854775807})").clickRate,
              std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(decoded(R"({"clickRate":-9223372036854775808})").clickRate,
              std::numeric_limits<std::int64_t>::min());
    for (const char *number : {"9223372036854775808", "-9223372036854775809",
                               "18446744073709551616", "1e19", "9223372036854775808.0"}) {
        EXPECT_EQ(decoded(R"({"maxClicks":3,"clickRate":)" + std::string(number) + "}"),
                  CorvaneConfig{.maxClicks = 3})
            << number;
    }
}

TEST(ConfigJsonTest, ANumberBeyondADoubleTakesItsDefault) {
    EXPECT_EQ(decoded(R"({"clickRate":1e999,"maxClicks":3})"), CorvaneConfig{.maxClicks = 3});
    EXPECT_EQ(decoded(R"({"zoneRect":{"x":-1e999,"y":2,"width":3,"height":4},"clickRate":5})"),
              CorvaneConfig{.clickRate = 5});
    EXPECT_EQ(decoded(R"({"zoneRect":{"x":1e-999,"y":2,"width":3,"height":4}})").zoneRect,
              (CodableRect{0, 2, 3, 4}));
}

TEST(ConfigJsonTest, AZoneMayBeOfAnySizeAndAnywhere) {
    EXPECT_EQ(decoded(R"({"zoneRect":{"x":1e90,"y":-1e90,"width":-1e19,"height":6e90}})").zoneRect,
              (CodableRect{1e90, -1e90, -1e19, 6e90}));
}

TEST(ConfigJsonTest, OfTwoMembersOfOneNameTheLastCounts) {
    EXPECT_EQ(decoded(R"({"clickRate":2,"clickRate":3})").clickRate, 3);
}

TEST(ConfigJsonTest, WhatIsNotAnObjectIsAnError) {
    for (const char *text : {"[]", "5", "null", "\"text\"", "true", "[{}]"}) {
        EXPECT_EQ(whyNot(text), "not an object") << text;
    }
}

TEST(ConfigJsonTest, WhatIsNotJsonIsAnError) {
    EXPECT_EQ(whyNot(""), "not valid JSON at byte 1");
    EXPECT_EQ(whyNot("{\"clickRate\":}"), "not valid JSON at byte 14");
    for (const char *text : {"   ", "{", "{]", "{} {}", "{'a':1}", "{\"a\":01}", "{\"a\":+1}",
                             "{\"a\":NaN}", "{\"a\":1,}", "// note\n{}", "{\"a\":\"\n\"}"}) {
        EXPECT_TRUE(whyNot(text).starts_with("not valid JSON at byte ")) << text;
    }
}

TEST(ConfigJsonTest, ABrokenEncodingIsAnError) {
    for (const char *text :
         {"{\"a\":\"\xff\"}", "{\"a\":\"\xc3\"}", "{\"a\":\"\xed\xa0\x80\"}", R"({"a":"\ud800"})",
          R"({"a":"\udc00\ud800"})", "\xff\xfe{\0}\0", R"({"a":"\ud83d\u0041"})"}) {
        EXPECT_TRUE(whyNot(text).starts_with("not valid JSON at byte ")) << text;
    }
}

TEST(ConfigJsonTest, AByteOrderMarkIsSkipped) {
    EXPECT_EQ(decoded("\xef\xbb\xbf{\"clickRate\":3}"), CorvaneConfig{.clickRate = 3});
}

TEST(ConfigJsonTest, ANulByteIsAnErrorWhereverItStands) {
    using namespace std::string_literals;
    EXPECT_EQ(whyNot("\0\0\0\0"s), "not valid JSON at byte 1");
    EXPECT_EQ(whyNot("{}\0"s), "not valid JSON at byte 3");
    EXPECT_EQ(whyNot("{}\0garbage"s), "not valid JSON at byte 3");
    EXPECT_EQ(whyNot("{\"a\":\"\0\"}"s), "not valid JSON at byte 7");
}

TEST(ConfigJsonTest, EscapedCharactersAreRead) {
    const CorvaneConfig config =
        decoded(R"({"windowAnchor":{"bundleID":"\u0000\ud83d\ude00","windowTitle":"\/\b\t\u00e9",)"
                R"("relativeRect":{"x":1,"y":2,"width":3,"height":4}}})");
    ASSERT_TRUE(config.windowAnchor);
    EXPECT_EQ(config.windowAnchor->bundleID, std::string("\0", 1) + "😀");
    EXPECT_EQ(config.windowAnchor->windowTitle, "/\b\té");
}

TEST(ConfigJsonTest, VeryDeepNestingIsAnErrorAndNoOverflow) {
    constexpr std::size_t levels = 1'000'000;
    const std::string tooDeep = "nested more than 512 levels deep";
    const std::string opening(levels, '[');
    const std::string closing(levels, ']');
    EXPECT_EQ(whyNot("{\"a\":" + opening + closing + "}"), tooDeep);
    EXPECT_EQ(whyNot(opening + closing), tooDeep);
    EXPECT_EQ(whyNot(opening), tooDeep);

    std::string objects;
    for (std::size_t level = 0; level < levels; ++level) {
        objects += "{\"a\":";
    }
    EXPECT_EQ(whyNot(objects + "1" + std::string(levels, '}')), tooDeep);
}

TEST(ConfigJsonTest, NestingWithinTheLimitIsRead) {
    const auto nested = [](std::size_t levels) {
        return "{\"a\":" + std::string(levels, '[') + "1" + std::string(levels, ']') +
               ",\"clickRate\":3}";
    };
    EXPECT_EQ(decoded(nested(511)), CorvaneConfig{.clickRate = 3});
    EXPECT_EQ(whyNot(nested(512)), "nested more than 512 levels deep");
}

} // namespace
} // namespace corvane
