#include "platform/linux/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace corvane::contract {

namespace {

using x11::CommandLine;
using Request = CommandLine::Request;

CommandLine parse(const std::vector<const char *> &arguments) {
    return CommandLine::parse(arguments);
}

TEST(CommandLineTest, RunsWithoutArguments) { EXPECT_EQ(parse({}).request, Request::run); }

TEST(CommandLineTest, TellsTheVersion) {
    for (const char *option : {"--version", "-v"}) {
        const auto commandLine = parse({option});
        EXPECT_EQ(commandLine.request, Request::answer);
        EXPECT_TRUE(commandLine.text.starts_with("Corvane ")) << commandLine.text;
        EXPECT_TRUE(commandLine.text.ends_with(")\n")) << commandLine.text;
    }
}

TEST(CommandLineTest, Helps) {
    for (const char *option : {"--help", "-h"}) {
        const auto commandLine = parse({option});
        EXPECT_EQ(commandLine.request, Request::answer);
        EXPECT_NE(commandLine.text.find("--version"), std::string::npos);
    }
}

TEST(CommandLineTest, RefusesWhatItDoesNotKnow) {
    for (const char *option : {"--verbose", "-x", "file", ""}) {
        const auto commandLine = parse({option});
        EXPECT_EQ(commandLine.request, Request::refuse);
        EXPECT_EQ(commandLine.text,
                  std::string("corvane: unknown option '") + option + "'; try --help\n");
    }
}

} // namespace

} // namespace corvane::contract
