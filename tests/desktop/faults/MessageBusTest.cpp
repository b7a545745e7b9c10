#include "DesktopTest.h"
#include "harness/StatusPanel.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;

/// The session's message bus goes away and another one takes its place.
class MessageBusTest : public DesktopTest {
  protected:
    MessageBusTest() { keepWindowManagerOut(); }

    /// Whoever shows status items has to be started again with the bus.
    void replaceMessageBus() {
        panel_.reset();
        desktop_.stopMessageBus();
        desktop_.startMessageBus();
        panel_ = std::make_unique<StatusPanel>(desktop_);
    }

    /// Where no socket can be found, a command goes by the bus.
    std::string commandByBus(const std::string &word) {
        CorvaneProcess call(
            desktop_, {.arguments = {word}, .environment = {{"XDG_RUNTIME_DIR", desktop_.home()}}});
        call.process().waitForEnd();
        return call.standardOutput();
    }

    /// A name on the bus is had a moment after it was asked for.
    bool isReachedByBus() {
        return waitUntil([this] { return commandByBus("status").starts_with("Idle"); });
    }

    std::unique_ptr<StatusPanel> panel_ = std::make_unique<StatusPanel>(desktop_);
};

TEST_F(MessageBusTest, theItemReturnsWithItsMenu) {
    const auto corvane = start({.clickRate = 50});
    ASSERT_TRUE(panel_->waitForItem()) << corvane->story();
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    for (int round = 0; round < 2; ++round) {
        replaceMessageBus();
        ASSERT_TRUE(panel_->waitForItem()) << corvane->story();
        ASSERT_TRUE(waitUntil([this] { return panel_->line("Stop").has_value(); }));
        EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
    }
    ASSERT_TRUE(panel_->choose("Stop"));
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(panel_->itemCount(), 1);
}

TEST_F(MessageBusTest, commandsReachItByTheNewBus) {
    const auto corvane = start({.clickRate = 50});
    ASSERT_TRUE(isReachedByBus()) << corvane->story();
    replaceMessageBus();
    ASSERT_TRUE(isReachedByBus()) << corvane->story();
    EXPECT_EQ(commandByBus("start"), "Clicking started.\n");
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
    EXPECT_THAT(commandByBus("stop"), HasSubstr("Clicking stopped after "));
}

TEST_F(MessageBusTest, anAlertStaysOpenMeanwhile) {
    const auto corvane = start({});
    ASSERT_TRUE(panel_->waitForItem()) << corvane->story();
    ASSERT_TRUE(panel_->choose("Save current config..."));
    ASSERT_TRUE(waitUntil([this] { return alert() != XCB_WINDOW_NONE; })) << corvane->story();
    replaceMessageBus();
    ASSERT_TRUE(panel_->waitForItem()) << corvane->story();
    EXPECT_TRUE(answerAlert(XK_Escape)) << corvane->story();
    EXPECT_TRUE(waitUntil([this] { return panel_->line("Start").has_value(); }));
    EXPECT_TRUE(panel_->choose("Quit Corvane"));
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
}

TEST_F(MessageBusTest, aBusThatComesLaterIsFound) {
    panel_.reset();
    desktop_.stopMessageBus();
    const auto corvane = start({.clickRate = 50});
    desktop_.startMessageBus();
    panel_ = std::make_unique<StatusPanel>(desktop_);
    ASSERT_TRUE(panel_->waitForItem()) << corvane->story();
    ASSERT_TRUE(waitUntil([this] { return panel_->choose("Start"); }));
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
