#include "presentation/CommandRequest.h"

#include <gtest/gtest.h>

#include <optional>

namespace corvane {
namespace {

TEST(CommandInUrlTest, ThePartsAreTheWords) {
    EXPECT_EQ(commandInUrl("corvane://start"), (CommandRequest{"start"}));
    EXPECT_EQ(commandInUrl("corvane:start"), (CommandRequest{"start"}));
    EXPECT_EQ(commandInUrl("corvane://profile/load/My%20profile%2F%C3%BC/"),
              (CommandRequest{"profile", "load", "My profile/ü"}));
    EXPECT_EQ(commandInUrl("corvane://"), CommandRequest{});
}

TEST(CommandInUrlTest, AnyWordsComeBackFromTheirUrl) {
    for (const CommandRequest &words :
         {CommandRequest{}, CommandRequest{"start"},
          CommandRequest{"profile", "load", "My profile"},
          CommandRequest{"/", "%", "%20", "ü", "?a=b&c#d", "corvane://x", "\x01\x7f\xff"}}) {
        EXPECT_EQ(commandInUrl(urlOfCommand(words)), words) << urlOfCommand(words);
    }
    EXPECT_EQ(urlOfCommand({"profile", "load", "My profile/ü"}),
              "corvane://profile/load/My%20profile%2F%C3%BC");
}

TEST(CommandInUrlTest, OtherUrlsCarryNone) {
    for (const char *url : {"", "corvane", "http://start", "corvane://a%2", "corvane://a%",
                            "corvane://a%+1", "corvane://%zz"}) {
        EXPECT_EQ(commandInUrl(url), std::nullopt) << url;
    }
}

} // namespace
} // namespace corvane
