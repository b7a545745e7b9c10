#include "platform/posix/CommandMessage.h"

#include <gtest/gtest.h>

namespace corvane::posix {
namespace {

using State = MessageReader::State;
using Words = std::vector<std::string>;

constexpr std::size_t limit = 1000;

TEST(CommandMessageTest, WordsHaveTheirLengthInFront) {
    EXPECT_EQ(encodeWords({"stop"}), "7:4:stop,,");
    EXPECT_EQ(encodeWords({}), "0:,");
    EXPECT_EQ(encodeWords({"", "a"}), "7:0:,1:a,,");
}

TEST(CommandMessageTest, AnyWordsComeThrough) {
    for (const Words &words : {Words{}, Words{""}, Words{"profile", "load", "a b"},
                               Words{std::string("\0,:9", 4), "ü", "\xff"}}) {
        EXPECT_EQ(decodeWords(encodeWords(words)), words);
    }
}

TEST(CommandMessageTest, RefusesWhatIsNoList) {
    for (const char *text :
         {"", ":", "0:", "0:,x", "3:abc,", "4:1:a,x,", "7:4:stop,", "-1:,", " 0:,", "+0:,",
          "4:9:a,,", "99999999999999999999:,", "x:,", "5:1:a,,"}) {
        EXPECT_EQ(decodeWords(text), std::nullopt) << text;
    }
}

TEST(CommandMessageTest, AMessageMayArriveByteByByte) {
    const std::string message = encodeWords({"profile", "load", "x"});
    MessageReader reader(limit);
    for (const char byte : message.substr(0, message.size() - 1)) {
        ASSERT_EQ(reader.append({&byte, 1}), State::incomplete);
    }
    ASSERT_EQ(reader.append(","), State::complete);
    EXPECT_EQ(reader.words(), (Words{"profile", "load", "x"}));
}

TEST(CommandMessageTest, NoticesGarbageEarly) {
    for (const char *text : {"GET / HTTP/1.1", "\n", "0:,0:,", "0:x", "123456789", "1:a,"}) {
        MessageReader reader(limit);
        EXPECT_EQ(reader.append(text), State::malformed) << text;
    }
}

TEST(CommandMessageTest, DoesNotWaitForMoreThanItReads) {
    MessageReader tooSmall(99);
    EXPECT_EQ(tooSmall.append("100:"), State::malformed);
    MessageReader justSo(100);
    EXPECT_EQ(justSo.append("100:"), State::incomplete);
}

TEST(CommandMessageTest, AnAnswerComesThrough) {
    const CommandReply reply{.result = CommandResult::refused, .output = "", .error = "not now"};
    EXPECT_EQ(decodeReply(*decodeWords(encodeReply(reply))), reply);
}

TEST(CommandMessageTest, RefusesWhatIsNoAnswer) {
    for (const Words &words : {Words{}, Words{"0", ""}, Words{"4", "", ""}, Words{"00", "", ""},
                               Words{"", "", ""}, Words{"-", "", ""}, Words{"0", "", "", ""}}) {
        EXPECT_EQ(decodeReply(words), std::nullopt);
    }
}

} // namespace
} // namespace corvane::posix
