#include "app/Command.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Kind = Command::Kind;

TEST(CommandTest, KnowsEveryCommandByItsWords) {
    EXPECT_EQ(Command::parse({"start"}), (Command{.kind = Kind::start}));
    EXPECT_EQ(Command::parse({"stop"}), (Command{.kind = Kind::stop}));
    EXPECT_EQ(Command::parse({"toggle"}), (Command{.kind = Kind::toggle}));
    EXPECT_EQ(Command::parse({"status"}), (Command{.kind = Kind::status}));
    EXPECT_EQ(Command::parse({"select-zone"}), (Command{.kind = Kind::selectZone}));
    EXPECT_EQ(Command::parse({"settings"}), (Command{.kind = Kind::settings}));
    EXPECT_EQ(Command::parse({"quit"}), (Command{.kind = Kind::quit}));
    EXPECT_EQ(Command::parse({"profile", "list"}), (Command{.kind = Kind::listProfiles}));
    EXPECT_EQ(Command::parse({"profile", "load", "a b"}),
              (Command{.kind = Kind::loadProfile, .profile = "a b"}));
}

TEST(CommandTest, ReportsCanBeJson) {
    EXPECT_EQ(Command::parse({"status", "--json"}),
              (Command{.kind = Kind::status, .asJson = true}));
    EXPECT_EQ(Command::parse({"profile", "list", "--json"}),
              (Command{.kind = Kind::listProfiles, .asJson = true}));
}

TEST(CommandTest, AProfileMayBeCalledAnything) {
    for (const char *name : {"", "--json", "load", " "}) {
        EXPECT_EQ(Command::parse({"profile", "load", name}),
                  (Command{.kind = Kind::loadProfile, .profile = name}));
    }
}

struct Misuse {
    CommandRequest words;
    const char *reason;
};

TEST(CommandTest, SaysWhyAnythingElseIsNoCommand) {
    for (const auto &[words, reason] : {
             Misuse{{}, "no command is given"},
             Misuse{{"fly"}, "unknown command 'fly'"},
             Misuse{{"Start"}, "unknown command 'Start'"},
             Misuse{{"start", "now"}, "'now' is one word too many"},
             Misuse{{"start", "--json"}, "'--json' is one word too many"},
             Misuse{{"status", "--json", "--json"}, "'--json' is one word too many"},
             Misuse{{"profile"}, "'profile' needs 'list' or 'load NAME'"},
             Misuse{{"profile", "burn"}, "unknown command 'profile burn'"},
             Misuse{{"profile", "load"}, "the name of the profile is missing"},
             Misuse{{"profile", "load", "a", "b"}, "'b' is one word too many"},
         }) {
        const auto command = Command::parse(words);
        ASSERT_FALSE(command) << reason;
        EXPECT_EQ(command.error().description, reason);
    }
}

} // namespace
} // namespace corvane
