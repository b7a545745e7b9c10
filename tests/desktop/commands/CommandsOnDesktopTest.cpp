#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/probes/WindowTree.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

#include <algorithm>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Where the socket for commands lies.
struct Route {
    const char *name;
    /// Taken away from the environment of the program and of the commands.
    std::vector<std::string> withoutVariables;

    friend std::ostream &operator<<(std::ostream &stream, const Route &route) {
        return stream << route.name;
    }
};

class CommandsOnDesktopTest : public DesktopTest, public testing::WithParamInterface<Route> {
  protected:
    struct Result {
        std::optional<int> exitCode;
        std::string output;
        std::string error;
    };

    std::unique_ptr<CorvaneProcess> startProgram(const Settings &settings) {
        return start(settings, {.withoutVariables = GetParam().withoutVariables});
    }

    /// Runs the program with the words of a command.
    Result command(const std::vector<std::string> &words) {
        CorvaneProcess call(desktop_,
                            {.arguments = words, .withoutVariables = GetParam().withoutVariables});
        const auto end = call.process().waitForEnd();
        EXPECT_TRUE(end.has_value()) << call.story();
        return {end.value_or(ProcessEnd{}).exitCode, call.standardOutput(), call.standardError()};
    }

    bool hasSettings() const {
        return std::ranges::any_of(
            corvaneWindows(desktop_.connection()),
            [](const SeenWindow &window) { return !window.isOverride && window.area.width > 100; });
    }
};

TEST_P(CommandsOnDesktopTest, NothingIsRunning) {
    const Result result = command({"start"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "corvane: Corvane is not running\n");
}

TEST_P(CommandsOnDesktopTest, StartsAndStops) {
    const auto corvane = startProgram({.clickRate = 20});
    EXPECT_EQ(command({"start"}).output, "Clicking started.\n");
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    EXPECT_THAT(command({"status"}).output, StartsWith("Clicking, "));
    const Result stop = command({"stop"});
    EXPECT_EQ(stop.exitCode, 0);
    EXPECT_THAT(stop.output, StartsWith("Clicking stopped after "));
    EXPECT_TRUE(staysQuiet());
    EXPECT_THAT(command({"status", "--json"}).output, HasSubstr("\"status\" : \"idle\""));
}

TEST_P(CommandsOnDesktopTest, TogglesLikeTheHotKey) {
    const auto corvane = startProgram({.clickRate = 20});
    EXPECT_EQ(command({"toggle"}).exitCode, 0);
    ASSERT_TRUE(waitForMoreClicks(1)) << corvane->story();
    EXPECT_EQ(command({"toggle"}).exitCode, 0);
    EXPECT_TRUE(staysQuiet());
}

TEST_P(CommandsOnDesktopTest, OpensTheSettingsUnlessItClicks) {
    const auto corvane = startProgram({.clickRate = 1});
    EXPECT_EQ(command({"start"}).exitCode, 0);
    const Result refused = command({"settings"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.output, "");
    EXPECT_EQ(refused.error, "corvane: not while Corvane clicks; 'corvane stop' ends that\n");
    EXPECT_FALSE(hasSettings());
    EXPECT_EQ(command({"stop"}).exitCode, 0);
    EXPECT_EQ(command({"settings"}).exitCode, 0);
    EXPECT_TRUE(waitUntil([this] { return hasSettings(); })) << corvane->story();
}

TEST_P(CommandsOnDesktopTest, LetsTheUserDrawAZone) {
    const auto corvane = startProgram({});
    EXPECT_EQ(command({"select-zone"}).exitCode, 0);
    EXPECT_THAT(command({"status"}).output, StartsWith("A zone is being drawn\n"));
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    EXPECT_TRUE(waitUntil([this] { return command({"status"}).output.starts_with("Idle\n"); }))
        << corvane->story();
}

TEST_P(CommandsOnDesktopTest, ListsAndLoadsProfiles) {
    writeFile(profilesFile(desktop_), R"({"profiles": [
        {"id": "6F9619FF-8B86-D011-B42D-00CF4FC964FF", "name": "Zwei Wörter",
         "clickMode": "cursor", "clickRate": 9, "timeUnit": "m", "maxClicks": 3}]})");
    const auto corvane = startProgram({});
    EXPECT_EQ(command({"profile", "list"}).output, "Zwei Wörter\n");
    EXPECT_EQ(command({"profile", "load", "Drei"}).exitCode, 1);
    EXPECT_EQ(command({"profile", "load", "Zwei Wörter"}).exitCode, 0);
    EXPECT_EQ(command({"status"}).output,
              "Idle\nSet to click at the cursor, 9/m, up to 3 times\nProfile: Zwei Wörter\n");
}

TEST_P(CommandsOnDesktopTest, EndsTheProgram) {
    const auto corvane = startProgram({.clickRate = 50});
    EXPECT_EQ(command({"start"}).exitCode, 0);
    const Result quit = command({"quit"});
    EXPECT_EQ(quit.exitCode, 0);
    EXPECT_EQ(quit.output, "Corvane ends.\n");
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_EQ(command({"status"}).exitCode, 3);
}

TEST_P(CommandsOnDesktopTest, TheNextProgramMayFollowAtOnceOnQuit) {
    std::vector<std::unique_ptr<CorvaneProcess>> programs;
    for (int round = 0; round < 5; ++round) {
        programs.push_back(startProgram({}));
        EXPECT_EQ(command({"quit"}).exitCode, 0) << programs.back()->story();
        EXPECT_EQ(command({"start"}).exitCode, 3) << programs.back()->story();
    }
}

TEST_P(CommandsOnDesktopTest, LaunchesTheProgramWhereNoneIsRunning) {
    writeSettings(desktop_, Settings{.clickRate = 20}.text());
    CorvaneProcess launched(desktop_, {.arguments = {"--launch", "start"},
                                       .withoutVariables = GetParam().withoutVariables});
    ASSERT_TRUE(waitForMoreClicks(2)) << launched.story();
    EXPECT_EQ(command({"--launch", "stop"}).exitCode, 0);
    EXPECT_TRUE(staysQuiet());
    EXPECT_TRUE(launched.process().isRunning());
}

TEST_P(CommandsOnDesktopTest, SaysWhatItDoesNotUnderstand) {
    const Result result = command({"profile"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "corvane: 'profile' needs 'list' or 'load NAME'; try --help\n");
}

INSTANTIATE_TEST_SUITE_P(Routes, CommandsOnDesktopTest,
                         testing::Values(Route{.name = "runtimeFolder", .withoutVariables = {}},
                                         Route{.name = "temporaryFolder",
                                               .withoutVariables = {"XDG_RUNTIME_DIR"}}),
                         [](const auto &each) { return std::string(each.param.name); });

} // namespace

} // namespace corvane::desktop
