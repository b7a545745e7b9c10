#include "support/AppDelegateTest.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace corvane {
namespace {

using ::testing::HasSubstr;

class CommandServiceTest : public testing::AppDelegateTest {
  protected:
    void SetUp() override { launch(); }

    /// Sends a command and lets the main queue turn until nothing is left to do.
    CommandReply send(const CommandRequest &request) {
        const std::size_t before = platform.commandEndpoint().replies.size();
        platform.commandEndpoint().send(request);
        platform.mainQueue().turnUntilIdle();
        const auto &replies = platform.commandEndpoint().replies;
        EXPECT_EQ(replies.size(), before + 1);
        return replies.empty() ? CommandReply{} : replies.back();
    }

    static CommandReply done(const std::string &sentence) {
        return {.result = CommandResult::done, .output = sentence + "\n"};
    }

    static CommandReply refused(const std::string &reason) {
        return {.result = CommandResult::refused, .error = reason};
    }

    void withdrawTrust() {
        platform.accessibility().isTrusted = false;
        platform.advance(std::chrono::seconds(3));
    }

    void saveProfiles(const std::vector<std::string> &names) {
        for (const std::string &name : names) {
            state().saveCurrentAsProfile(name);
        }
        settle();
    }

    nlohmann::json statusJson() { return nlohmann::json::parse(send({"status", "--json"}).output); }

    const CommandReply notWhileClicking =
        refused("not while Corvane clicks; 'corvane stop' ends that");
    const CommandReply notGranted =
        refused("Corvane may not click in other applications; 'corvane doctor' says why");
};

TEST_F(CommandServiceTest, AKeyThatIsHeldTogglesOnce) {
    EXPECT_EQ(send({"toggle", "--key"}), done("Clicking started."));
    for (int repeat = 0; repeat < 30; ++repeat) {
        platform.advance(std::chrono::milliseconds(repeat == 0 ? 500 : 33));
        EXPECT_EQ(send({"toggle", "--key"}), done("The key is held."));
    }
    EXPECT_EQ(state().status, ClickStatus::running);
    platform.advance(std::chrono::milliseconds(700));
    EXPECT_THAT(send({"toggle", "--key"}).output, HasSubstr("Clicking stopped"));
    EXPECT_EQ(send({"toggle"}), done("Clicking started."));
}

TEST_F(CommandServiceTest, StartsAndStops) {
    EXPECT_EQ(send({"start"}), done("Clicking started."));
    EXPECT_EQ(state().status, ClickStatus::running);
    ASSERT_TRUE(platform.clock().awaitBlocked());
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(send({"stop"}), done("Clicking stopped after 1 clicks."));
    EXPECT_EQ(state().status, ClickStatus::idle);
}

TEST_F(CommandServiceTest, WhatIsSoAlreadyIsDone) {
    EXPECT_EQ(send({"stop"}), done("Corvane is not clicking."));
    startRunning();
    EXPECT_EQ(send({"start"}), done("Corvane is clicking already."));
    EXPECT_EQ(platform.mouseEvents().openedSessions(), 1U);
}

TEST_F(CommandServiceTest, TogglesAsTheHotKeyDoes) {
    send({"toggle"});
    EXPECT_EQ(state().status, ClickStatus::running);
    send({"toggle"});
    EXPECT_EQ(state().status, ClickStatus::idle);
}

TEST_F(CommandServiceTest, StopIsAnsweredWhenTheRunIsOver) {
    startRunning();
    platform.commandEndpoint().send({"stop"});
    EXPECT_TRUE(platform.commandEndpoint().replies.empty());
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(platform.commandEndpoint().replies.size(), 1U);
    EXPECT_EQ(state().status, ClickStatus::idle);
}

TEST_F(CommandServiceTest, AStartIsRefusedWithoutTrust) {
    withdrawTrust();
    EXPECT_EQ(send({"start"}), notGranted);
    EXPECT_EQ(send({"toggle"}), notGranted);
    EXPECT_EQ(platform.accessibility().settingsOpened, 0);
}

TEST_F(CommandServiceTest, AStartIsRefusedWhenTheTrustHasJustGone) {
    platform.accessibility().isTrusted = false;
    EXPECT_EQ(send({"start"}), notGranted);
    EXPECT_EQ(logged("Cannot start: accessibility not granted"), 1);
}

TEST_F(CommandServiceTest, AStartThatAsksIsAnsweredBeforeTheUserAnswers) {
    anchorZone();
    platform.applications().runningApplications.clear();
    std::vector<CommandReply> answersMeanwhile;
    platform.alerts().whileShown = [&](const Alert &) {
        platform.mainQueue().turnUntilIdle();
        answersMeanwhile = platform.commandEndpoint().replies;
    };
    platform.alerts().answers = {{.button = 0}};
    const auto asks =
        refused("the anchored window is not there; Corvane asks on the screen what to do");
    EXPECT_EQ(send({"start"}), asks);
    EXPECT_EQ(answersMeanwhile, std::vector{asks});
    EXPECT_EQ(state().status, ClickStatus::running);
}

TEST_F(CommandServiceTest, AStartMeanwhileIsRefused) {
    anchorZone();
    platform.applications().runningApplications.clear();
    platform.alerts().whileShown = [&](const Alert &) {
        platform.commandEndpoint().send({"start"});
    };
    platform.commandEndpoint().send({"start"});
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(platform.commandEndpoint().replies,
              (std::vector{refused("a question on the screen has to be answered first"),
                           refused("the start was cancelled")}));
    EXPECT_EQ(platform.alerts().shown.size(), 1U);
}

TEST_F(CommandServiceTest, OpensTheSettings) {
    EXPECT_EQ(send({"settings"}), done("The settings are open."));
    EXPECT_TRUE(platform.settingsWindows().window().isVisible);
}

TEST_F(CommandServiceTest, LetsAZoneBeDrawnInEveryMode) {
    const auto prompt = done("Draw the zone on the screen; Escape leaves everything as it is.");
    EXPECT_EQ(send({"select-zone"}), prompt);
    EXPECT_EQ(state().status, ClickStatus::pickingZone);
    const std::size_t overlays = platform.overlayWindows().visible().size();
    EXPECT_GT(overlays, 0U);
    EXPECT_EQ(send({"select-zone"}), prompt);
    EXPECT_EQ(platform.overlayWindows().visible().size(), overlays);
}

TEST_F(CommandServiceTest, RefusesWhileClickingWhatTheMenuDisables) {
    saveProfiles({"Work"});
    for (const ClickMode mode : {ClickMode::cursor, ClickMode::zone}) {
        state().config.clickMode = mode;
        startRunning();
        EXPECT_EQ(send({"settings"}), notWhileClicking);
        EXPECT_EQ(send({"select-zone"}), notWhileClicking);
        EXPECT_EQ(send({"profile", "load", "Work"}), notWhileClicking);
        EXPECT_EQ(state().status, ClickStatus::running);
        send({"stop"});
        awaitIdle();
    }
    EXPECT_TRUE(platform.settingsWindows().windows().empty());
}

TEST_F(CommandServiceTest, LoadsAProfileByNameOrId) {
    state().config.clickRate = 7;
    saveProfiles({"Slow"});
    state().config.clickRate = 70;
    saveProfiles({"Fast"});
    EXPECT_EQ(send({"profile", "load", "Slow"}), done("Profile 'Slow' is loaded."));
    EXPECT_EQ(state().config.clickRate, 7);
    const std::string id = state().profiles[1].id.text();
    EXPECT_EQ(send({"profile", "load", id}), done("Profile '" + id + "' is loaded."));
    EXPECT_EQ(state().config.clickRate, 70);
    EXPECT_EQ(state().activeProfileID, state().profiles[1].id);
}

TEST_F(CommandServiceTest, RefusesAProfileThatIsNotOne) {
    saveProfiles({"Twin", "Twin"});
    EXPECT_EQ(send({"profile", "load", "twin"}), refused("there is no profile 'twin'"));
    const CommandReply twins = send({"profile", "load", "Twin"});
    EXPECT_EQ(twins.result, CommandResult::refused);
    EXPECT_THAT(twins.error, HasSubstr("several profiles are called 'Twin'"));
}

TEST_F(CommandServiceTest, ListsTheProfiles) {
    EXPECT_EQ(send({"profile", "list"}), CommandReply{});
    saveProfiles({"Slow", "Two\nlines"});
    EXPECT_EQ(send({"profile", "list"}).output, "Slow\nTwo lines\n");
    const auto json = nlohmann::json::parse(send({"profile", "list", "--json"}).output);
    EXPECT_EQ(json["format"], 1);
    EXPECT_EQ(json["profiles"].size(), 2U);
    EXPECT_EQ(json["profiles"][1]["name"], "Two\nlines");
    EXPECT_EQ(json["profiles"][1]["id"], state().profiles[1].id.text());
    EXPECT_EQ(json["activeProfileID"], state().profiles[1].id.text());
}

TEST_F(CommandServiceTest, TellsTheStatusInWords) {
    EXPECT_EQ(send({"status"}).output, "Idle\nSet to click at the cursor, 1/s, without end\n");
    state().config = {.clickMode = ClickMode::zone,
                      .zoneRect = CodableRect{10, 20, 300, 200},
                      .clickRate = 5,
                      .timeUnit = TimeUnit::minutes,
                      .maxClicks = 50};
    saveProfiles({"Work"});
    EXPECT_EQ(send({"status"}).output,
              "Idle\nSet to click inside a zone of 300×200, 5/m, up to 50 times\nProfile: Work\n");
    startRunning();
    EXPECT_THAT(send({"status"}).output, ::testing::StartsWith("Clicking, "));
    send({"stop"});
    withdrawTrust();
    EXPECT_THAT(send({"status"}).output, HasSubstr("Clicks do not reach other applications"));
    send({"select-zone"});
    EXPECT_THAT(send({"status"}).output, ::testing::StartsWith("A zone is being drawn\n"));
}

/// The whole text: scripts rely on it.
TEST_F(CommandServiceTest, TellsTheStatusAsJson) {
    EXPECT_EQ(send({"status", "--json"}).output, R"({
  "clickCount" : 0,
  "config" : {
    "clickMode" : "cursor",
    "clickRate" : 1,
    "maxClicks" : 0,
    "timeUnit" : "s"
  },
  "format" : 1,
  "isAccessibilityGranted" : true,
  "isHotkeyRegistered" : true,
  "status" : "idle"
}
)");
}

TEST_F(CommandServiceTest, TheJsonFollowsTheState) {
    saveProfiles({"Work"});
    EXPECT_EQ(statusJson()["activeProfile"]["name"], "Work");
    EXPECT_EQ(statusJson()["activeProfile"]["id"], state().profiles[0].id.text());
    startRunning();
    EXPECT_EQ(statusJson()["status"], "running");
    EXPECT_EQ(statusJson()["clickCount"], 1);
    send({"stop"});
    send({"select-zone"});
    EXPECT_EQ(statusJson()["status"], "pickingZone");
    withdrawTrust();
    EXPECT_EQ(statusJson()["isAccessibilityGranted"], false);
}

TEST_F(CommandServiceTest, QuitIsAnsweredWhenNoMoreCommandsAreTaken) {
    startRunning();
    platform.commandEndpoint().send({"quit"});
    platform.commandEndpoint().send({"quit"});
    platform.mainQueue().turnUntilIdle();
    EXPECT_GE(platform.application().terminations, 1);
    EXPECT_TRUE(platform.commandEndpoint().replies.empty());
    delegate->applicationWillTerminate();
    EXPECT_FALSE(platform.commandEndpoint().isListening());
    EXPECT_EQ(platform.commandEndpoint().replies, std::vector(2, done("Corvane ends.")));
}

TEST_F(CommandServiceTest, AnotherStartOfTheProgramShowsWhereItIs) {
    EXPECT_EQ(send({}), CommandReply{});
    EXPECT_EQ(statusItem().menusOpened, 1);
}

TEST_F(CommandServiceTest, RefusesWhatIsNoCommand) {
    EXPECT_EQ(send({"fly"}),
              (CommandReply{.result = CommandResult::misused, .error = "unknown command 'fly'"}));
}

TEST_F(CommandServiceTest, DoesNothingOnceTheProgramHasEnded) {
    startRunning();
    platform.commandEndpoint().send({"stop"});
    delegate.reset();
    platform.mainQueue().turnUntilIdle();
    platform.commandEndpoint().send({"start"});
    EXPECT_TRUE(platform.commandEndpoint().replies.empty());
}

class CommandsAtLaunchTest : public testing::AppDelegateTest {};

TEST_F(CommandsAtLaunchTest, AreTakenOnceTheFilesAreLoaded) {
    delegate->applicationDidFinishLaunching();
    EXPECT_FALSE(platform.commandEndpoint().isListening());
    EXPECT_TRUE(platform.mainQueue().turnUntil(
        [this] { return platform.commandEndpoint().isListening(); }));
}

TEST_F(CommandsAtLaunchTest, TellThatTheHotKeyIsNotToBeHad) {
    platform.hotKeys().registerFailure = 10;
    launch();
    platform.commandEndpoint().send({"status", "--json"});
    const auto json = nlohmann::json::parse(platform.commandEndpoint().replies.front().output);
    EXPECT_EQ(json["isHotkeyRegistered"], false);
}

} // namespace
} // namespace corvane
