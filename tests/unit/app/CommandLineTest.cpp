#include "app/CommandLine.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Request = CommandLine::Request;

CommandLine parse(const CommandRequest &words) {
    return CommandLine::parse(words, {.version = "2.1 (37)", .hotKeyName = "⇧⌘Y"});
}

TEST(CommandLineTest, RunsWithoutArguments) { EXPECT_EQ(parse({}).request, Request::run); }

TEST(CommandLineTest, KnowsWhoStartsTheProgram) {
    EXPECT_EQ(parse({}).cause, LaunchCause::user);
    EXPECT_EQ(parse({"--launch", "start"}).cause, LaunchCause::user);
    EXPECT_EQ(parse({"--at-login"}).request, Request::run);
    EXPECT_EQ(parse({"--at-login"}).cause, LaunchCause::login);
    EXPECT_EQ(parse({"--at-login", "start"}).reply.error,
              "'start' is one word too many; try --help");
}

TEST(CommandLineTest, TellsTheVersion) {
    for (const char *option : {"--version", "-v"}) {
        const auto commandLine = parse({option});
        EXPECT_EQ(commandLine.request, Request::reply);
        EXPECT_EQ(commandLine.reply, (CommandReply{.output = "Corvane 2.1 (37)\n"}));
    }
}

TEST(CommandLineTest, Helps) {
    for (const char *option : {"--help", "-h"}) {
        const auto commandLine = parse({option});
        EXPECT_EQ(commandLine.request, Request::reply);
        EXPECT_EQ(commandLine.reply.result, CommandResult::done);
        for (const char *word : {"--version", "--at-login", "\n⇧⌘Y or Corvane's menu ",
                                 "\nWith --launch, Corvane is started first",
                                 "0 done, 1 refused, 2 not understood, 3 no Corvane is running"}) {
            EXPECT_NE(commandLine.reply.output.find(word), std::string::npos) << word;
        }
        for (const char *command : {"start", "stop", "toggle", "status", "select-zone", "settings",
                                    "quit", "profile list", "profile load NAME", "doctor"}) {
            EXPECT_NE(commandLine.reply.output.find(std::string("\n  ") + command + ' '),
                      std::string::npos)
                << command;
        }
    }
}

TEST(CommandLineTest, RefusesOptionsItDoesNotKnow) {
    for (const std::string option : {"--verbose", "-x", "-"}) {
        const auto commandLine = parse({option});
        EXPECT_EQ(commandLine.request, Request::reply);
        EXPECT_EQ(commandLine.reply,
                  (CommandReply{.result = CommandResult::misused,
                                .error = "unknown option '" + option + "'; try --help"}));
    }
}

TEST(CommandLineTest, RefusesCommandsItDoesNotKnow) {
    EXPECT_EQ(parse({"file"}).reply.error, "unknown command 'file'; try --help");
    EXPECT_EQ(parse({""}).reply.error, "unknown command ''; try --help");
    EXPECT_EQ(parse({"file"}).reply.result, CommandResult::misused);
}

TEST(CommandLineTest, TheDoctorComesByHimself) {
    EXPECT_EQ(parse({"doctor"}).request, Request::diagnose);
    EXPECT_EQ(parse({"doctor", "now"}).reply.result, CommandResult::misused);
}

TEST(CommandLineTest, ACommandMayLaunchTheProgram) {
    const auto commandLine = parse({"--launch", "settings"});
    EXPECT_EQ(commandLine.request, Request::launch);
    EXPECT_EQ(commandLine.words, CommandRequest{"settings"});
    EXPECT_EQ(parse({"--launch"}).reply.error, "no command is given; try --help");
    EXPECT_EQ(parse({"--launch", "doctor"}).reply.error, "unknown command 'doctor'; try --help");
}

TEST(CommandLineTest, PassesCommandsOnAsTheyAre) {
    const CommandRequest words{"profile", "load", "Ünï  côdé"};
    const auto commandLine = parse(words);
    EXPECT_EQ(commandLine.request, Request::command);
    EXPECT_EQ(commandLine.words, words);
}

} // namespace
} // namespace corvane
