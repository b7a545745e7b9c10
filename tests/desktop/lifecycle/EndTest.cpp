#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/actors/StatusPanel.h"

#include <gmock/gmock.h>

#include <csignal>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;

/// How the program ends, by signal.
class EndTest : public DesktopTest, public testing::WithParamInterface<int> {
  protected:
    EndTest() { keepWindowManagerOut(); }
};

TEST_P(EndTest, LeavesTheButtonReleasedAndTheFilesWhole) {
    const auto corvane = start({.clickRate = 100});
    const std::string settings = readFile(settingsFile(desktop_));
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    ASSERT_TRUE(waitUntil([this] { return pointer_.isLeftButtonDown(); }));
    corvane->process().signal(GetParam());

    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    expectRunEnded(*corvane);
    EXPECT_EQ(readFile(settingsFile(desktop_)), settings);
}

TEST_P(EndTest, EndsWhenIdle) {
    const auto corvane = start({});
    corvane->process().signal(GetParam());
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_EQ(corvane->logCount("Clicker stopped after 0 clicks"), 0);
}

INSTANTIATE_TEST_SUITE_P(Signals, EndTest, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto &each) {
                             return std::string("signal") + sigabbrev_np(each.param);
                         });

class LostServerTest : public DesktopTest {};

TEST_F(LostServerTest, EndsWithAnErrorAndSavesWhatWasChanged) {
    StatusPanel panel(desktop_);
    const auto corvane = start({.clickRate = 50});
    ASSERT_TRUE(panel.waitForItem()) << corvane->story();
    ASSERT_TRUE(panel.choose("Defined Zone"));
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane->story();
    desktop_.stopServer();
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 1})) << corvane->story();
    EXPECT_THAT(readFile(settingsFile(desktop_)), HasSubstr("\"clickMode\" : \"zone\""));
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
