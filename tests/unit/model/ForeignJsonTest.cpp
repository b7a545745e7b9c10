#include "model/Json.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane {
namespace {

using namespace std::string_literals;

constexpr const char *id = "0F8FAD5B-D9CB-469F-A165-70867728950E";

/// A settings file with that text as the click rate, beside a limit of 3.
std::string configWith(const std::string &rate) {
    return R"({"maxClicks":3,"clickRate":)" + rate + "}";
}

/// A profiles file with one profile of such settings.
std::string storeWith(const std::string &rate) {
    return R"({"profiles":[{"id":")" + std::string(id) +
           R"(","name":"Work","clickMode":"cursor","timeUnit":"s","maxClicks":3,"clickRate":)" +
           rate + "}]}";
}

/// Both files with a member nobody knows that holds that text.
std::string configBeside(const std::string &text) {
    return R"({"future":)" + text + R"(,"clickRate":3})";
}
std::string storeBeside(const std::string &text) {
    return R"({"future":)" + text + R"(,"profiles":[]})";
}

std::string problemOf(const auto &outcome) {
    return outcome ? "it was read" : outcome.error().description;
}

/// What neither file may hold.
void expectNotJson(const std::string &text, const std::string &reason = "not valid JSON") {
    SCOPED_TRACE(text.substr(0, 100));
    const std::string config = problemOf(decodeConfig(text));
    EXPECT_TRUE(config.starts_with(reason)) << config;
    const std::string store = problemOf(decodeProfileStore(text));
    EXPECT_TRUE(store.starts_with(reason)) << store;
}

/// What changes nothing where nobody looks at it.
void expectIgnored(const std::string &text) {
    SCOPED_TRACE(text.substr(0, 100));
    EXPECT_EQ(decodeConfig(configBeside(text)), CorvaneConfig{.clickRate = 3});
    EXPECT_EQ(decodeProfileStore(storeBeside(text)), ProfileStore{});
}

TEST(ForeignJsonTest, NumbersNoIntegerHoldsCostASettingAndAllProfiles) {
    for (const char *number :
         {"9223372036854775808", "-9223372036854775809", "1e19", "0.5", "18446744073709551616"}) {
        EXPECT_EQ(decodeConfig(configWith(number)), CorvaneConfig{.maxClicks = 3}) << number;
        EXPECT_TRUE(problemOf(decodeProfileStore(storeWith(number)))
                        .starts_with("profiles: number 1: clickRate: "))
            << number;
        expectIgnored(number);
    }
}

TEST(ForeignJsonTest, TheLargestAndTheSmallestIntegerAreRead) {
    for (const char *number : {"9223372036854775807", "-9223372036854775808"}) {
        const std::int64_t value = std::stoll(number);
        EXPECT_EQ(decodeConfig(configWith(number))->clickRate, value);
        EXPECT_EQ(decodeProfileStore(storeWith(number))->profiles.front().config.clickRate, value);
    }
}

TEST(ForeignJsonTest, WhatIsNoNumberOfJsonIsAnError) {
    for (const char *number : {"NaN", "nan", "Infinity", "-Infinity", "0x10", "1.", ".5", "+1",
                               "01", "1e", "--1", "1_000"}) {
        expectNotJson(configWith(number));
        expectNotJson(storeWith(number));
        expectNotJson(configBeside(number));
    }
}

TEST(ForeignJsonTest, ANumberBeyondADoubleCostsASettingAndAllProfiles) {
    for (const std::string &number :
         {"1e309"s, "1e999"s, "-1e999"s, "1.25E+999"s, "0.1e1000"s, "1" + std::string(400, '0')}) {
        EXPECT_EQ(decodeConfig(configWith(number)), CorvaneConfig{.maxClicks = 3}) << number;
        EXPECT_EQ(problemOf(decodeProfileStore(storeWith(number))),
                  "profiles: number 1: clickRate: not a whole number of 64 bits");
        expectIgnored(number);
        expectIgnored("[" + number + "," + number + "]");
    }
    EXPECT_EQ(problemOf(decodeConfig("1e999")), "not an object");
    expectIgnored(R"("1e999")");
}

TEST(ForeignJsonTest, WhatIsNoNumberOfJsonIsAnErrorOfAnySize) {
    for (const char *number : {"1e999.5", "01e999", "1.e999", "1e+-999", "--1e999", "1e999e1"}) {
        expectNotJson(configWith(number));
        expectNotJson(storeWith(number));
        expectNotJson(configBeside(number));
    }
}

TEST(ForeignJsonTest, ANumberBeyondADoubleChangesNothingAroundIt) {
    const std::string name = R"(say \"1e999\" \\)";
    const auto store = decodeProfileStore(R"({"future":1e9999,"profiles":[{"id":")" +
                                          std::string(id) + R"(","name":")" + name +
                                          R"(","clickMode":"cursor","timeUnit":"s","maxClicks":3,)"
                                          R"("clickRate":1}]})");
    ASSERT_TRUE(store) << problemOf(store);
    EXPECT_EQ(store->profiles.at(0).name, R"(say "1e999" \)");
    EXPECT_EQ(problemOf(decodeConfig(R"({"future":1e9999,"clickRate":})")),
              "not valid JSON at byte 30");
}

TEST(ForeignJsonTest, OfMembersOfOneNameTheLastCounts) {
    EXPECT_EQ(decodeConfig(configWith("1,\"clickRate\":2"))->clickRate, 2);
    EXPECT_EQ(decodeConfig(configWith("2,\"clickRate\":\"2\""))->clickRate, 1);
    EXPECT_EQ(decodeProfileStore(storeWith("1,\"clickRate\":2"))->profiles.front().config.clickRate,
              2);
    EXPECT_EQ(decodeProfileStore(R"({"profiles":7,"profiles":[]})"), ProfileStore{});
    EXPECT_EQ(problemOf(decodeProfileStore(R"({"profiles":[],"profiles":7})")),
              "profiles: not a list");
}

TEST(ForeignJsonTest, AZeroByteIsAnErrorWhereverItStands) {
    for (const std::string &text : {"\0"s, "{}\0"s, "{\"a\":\"\0\"}"s, "\0{}"s, "{\0}"s}) {
        expectNotJson(text);
    }
    expectIgnored(R"("\u0000")");
}

TEST(ForeignJsonTest, ABrokenEncodingIsAnError) {
    for (const char *text :
         {R"("\ud800")", R"("\udc00")", R"("\udc00\ud800")", R"("\ud83dx")", R"("\ud83d\u0041")",
          "\"\xff\"", "\"\xc3\"", "\"\xed\xa0\x80\"", "\"\xc0\x80\"", "\"\xf5\x80\x80\x80\""}) {
        expectNotJson(configBeside(text));
        expectNotJson(storeBeside(text));
    }
    expectIgnored(R"("\ud83d\ude00")");
}

TEST(ForeignJsonTest, AByteOrderMarkIsSkippedInUtf8Alone) {
    const std::string mark = "\xef\xbb\xbf";
    EXPECT_EQ(decodeConfig(mark + configBeside("1")), CorvaneConfig{.clickRate = 3});
    EXPECT_EQ(decodeProfileStore(mark + storeBeside("1")), ProfileStore{});
    expectNotJson(mark);
    expectNotJson(mark + mark + "{}");
    expectNotJson("\xff\xfe{}");
    expectNotJson("\xef\xbb{}");
}

TEST(ForeignJsonTest, AMillionLevelsAreAnError) {
    constexpr std::size_t levels = 1'000'000;
    const std::string reason = "nested more than 512 levels deep";
    const std::string opening(levels, '[');
    const std::string whole = opening + std::string(levels, ']');
    std::string objects;
    for (std::size_t level = 0; level < levels; ++level) {
        objects += "{\"a\":";
    }
    for (const std::string &text : {opening, whole, objects, configBeside(whole),
                                    storeBeside(whole), configWith(whole), storeWith(whole)}) {
        expectNotJson(text, reason);
    }
}

TEST(ForeignJsonTest, BracketsWithinTextAreNoLevels) {
    expectIgnored("\"" + std::string(10'000, '[') + "\"");
    expectIgnored(R"("\")" + std::string(10'000, '{') + R"(\\")");
    std::string flat = "[";
    for (int element = 0; element < 10'000; ++element) {
        flat += "[],";
    }
    expectIgnored(flat + "0]");
}

TEST(ForeignJsonTest, BracketsAfterTextThatEndsInABackslashAreLevels) {
    const std::string deep = R"(["\\",)" + std::string(600, '[') + std::string(600, ']') + "]";
    expectNotJson(configBeside(deep), "nested more than 512 levels deep");
}

/// A member of every kind, again and again, in that many bytes. A reader that looks back at all
/// before each would not come to an end.
std::string largeText(std::size_t size) {
    std::string text = "[";
    text.reserve(size);
    while (text.size() < size / 10) {
        text += "{\"a\":[1]},1e-99,";
    }
    text.append("\"").append(size / 2, 'x').append("\",").append(size - text.size() - 2, ' ');
    return text + "0]";
}

TEST(ForeignJsonTest, TenMegabytesAreRead) { expectIgnored(largeText(10'000'000)); }

TEST(LargeForeignJsonTest, AHundredMegabytesAreRead) { expectIgnored(largeText(100'000'000)); }

} // namespace
} // namespace corvane
