#include "DesktopTest.h"
#include "harness/TextFile.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class StartTest : public DesktopTest {
  protected:
    /// Runs the program to its end.
    ProcessEnd runToEnd(CorvaneProcess &corvane) {
        const auto end = corvane.process().waitForEnd();
        EXPECT_TRUE(end.has_value()) << corvane.story();
        return end.value_or(ProcessEnd{});
    }
};

TEST_F(StartTest, TellsItsVersion) {
    CorvaneProcess corvane(desktop_, {.arguments = {"--version"}});
    EXPECT_EQ(runToEnd(corvane).exitCode, 0);
    EXPECT_THAT(corvane.standardOutput(), testing::MatchesRegex("Corvane [0-9.]+ \\([0-9]+\\)\n"));
    EXPECT_EQ(corvane.standardError(), "");
}

TEST_F(StartTest, AnswersWithoutADisplay) {
    CorvaneProcess corvane(desktop_, {.arguments = {"--help"}, .withoutVariables = {"DISPLAY"}});
    EXPECT_EQ(runToEnd(corvane).exitCode, 0);
    EXPECT_THAT(corvane.standardOutput(), StartsWith("Usage: corvane"));
    EXPECT_FALSE(std::filesystem::exists(settingsFile(desktop_)));
}

TEST_F(StartTest, RefusesAnUnknownOption) {
    CorvaneProcess corvane(desktop_, {.arguments = {"--frobnicate"}});
    EXPECT_GT(runToEnd(corvane).exitCode, 0);
    EXPECT_EQ(wholeLines(corvane.standardError()).size(), 1);
    EXPECT_THAT(corvane.standardError(), HasSubstr("--frobnicate"));
    EXPECT_EQ(corvane.standardOutput(), "");
}

TEST_F(StartTest, SaysInOneLineThatThereIsNoDisplay) {
    CorvaneProcess without(desktop_, {.withoutVariables = {"DISPLAY"}});
    EXPECT_EQ(runToEnd(without).exitCode, 1);
    EXPECT_EQ(wholeLines(without.standardError()).size(), 1) << without.story();
    EXPECT_THAT(without.standardError(), HasSubstr("display"));
    CorvaneProcess unreachable(desktop_, {.environment = {{"DISPLAY", ":65000"}}});
    EXPECT_EQ(runToEnd(unreachable).exitCode, 1);
    EXPECT_EQ(wholeLines(unreachable.standardError()).size(), 1) << unreachable.story();
}

TEST_F(StartTest, ASecondStartSaysSoAndTheFirstGoesOn) {
    const auto first = start({.clickRate = 20});
    CorvaneProcess second(desktop_);
    EXPECT_EQ(runToEnd(second).exitCode, 0) << second.story();
    EXPECT_THAT(second.standardOutput() + second.standardError(), HasSubstr("already"));
    EXPECT_TRUE(second.log().empty()) << second.story();

    EXPECT_TRUE(first->process().isRunning());
    // It shows where it is: with no panel on the desktop, by its menu at the pointer.
    ASSERT_TRUE(waitUntil([this] { return hasMenu(); })) << first->story();
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    ASSERT_TRUE(waitUntil([this] { return !hasMenu(); })) << first->story();
    keyboard_.pressHotKey();
    EXPECT_TRUE(first->waitForLogBeginning("Clicker started")) << first->story();
}

TEST_F(StartTest, ASecondStartAtLoginShowsNothing) {
    const auto first = start({});
    CorvaneProcess atLogin(desktop_, {.arguments = {"--at-login"}});
    EXPECT_EQ(runToEnd(atLogin).exitCode, 0) << atLogin.story();
    CorvaneProcess question(desktop_, {.arguments = {"status"}});
    EXPECT_EQ(runToEnd(question).exitCode, 0) << question.story();
    EXPECT_FALSE(hasMenu());
}

TEST_F(StartTest, PrintsNothingUnexpected) {
    const auto corvane = start({});
    EXPECT_EQ(corvane->standardOutput(),
              "[Corvane] Loaded config from " + settingsFile(desktop_).string() + "\n");
    EXPECT_EQ(corvane->standardError(), "");
    EXPECT_EQ(corvane->log().front(), "Initial accessibility: true");
}

class NoTestExtensionTest : public testing::Test {
  protected:
    VirtualDesktop desktop_{{.withoutExtensions = {"XTEST"}}};
};

TEST_F(NoTestExtensionTest, StartsButIsNotGranted) {
    CorvaneProcess corvane(desktop_);
    ASSERT_TRUE(corvane.waitUntilReady()) << corvane.story();
    EXPECT_EQ(corvane.logCount("Initial accessibility: false"), 1) << corvane.story();
}

} // namespace

} // namespace corvane::desktop
