#include "DesktopTest.h"
#include "harness/actors/StatusPanel.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace corvane::desktop {

namespace {

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

    std::unique_ptr<StatusPanel> panel_ = std::make_unique<StatusPanel>(desktop_);
};

TEST_F(MessageBusTest, TheItemReturnsWithItsMenu) {
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

TEST_F(MessageBusTest, AnAlertStaysOpenMeanwhile) {
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

TEST_F(MessageBusTest, ABusThatComesLaterIsFound) {
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
