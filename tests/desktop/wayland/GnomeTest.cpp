#include "WaylandTest.h"
#include "harness/servers/GnomeDesktop.h"

#include <csignal>

namespace corvane::desktop {

namespace {

class GnomeTest : public WaylandTest {
  protected:
    GnomeTest() : WaylandTest(std::make_unique<GnomeDesktop>()) {}

    GnomeDesktop &gnome_ = static_cast<GnomeDesktop &>(desktop_);

    void toggle() const {
        CorvaneProcess command(desktop_, {.arguments = {"toggle"}});
        EXPECT_EQ(command.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << command.story();
    }
};

TEST_F(GnomeTest, EveryClickArrivesOnceTheUserHasConsented) {
    const auto corvane = start({.clickRate = 10, .maxClicks = 20});
    toggle();
    EXPECT_TRUE(corvane->waitForLog("Clicker finished after 20 clicks (limit reached)"))
        << corvane->story();
    EXPECT_TRUE(client_.waitForClicks(20));
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(client_.pressCount(), 20);
    EXPECT_EQ(client_.releaseCount(), 20);
}

class GnomeWithTokensTest : public GnomeTest {};

TEST_F(GnomeWithTokensTest, TheSecondStartAsksNothingAndClicksOverASocket) {
    start({.clickRate = 10, .maxClicks = 20})->process().signal(SIGTERM);
    CorvaneProcess second(desktop_);
    ASSERT_TRUE(second.waitForLog("The desktop's portal lets Corvane click")) << second.story();
    toggle();
    EXPECT_TRUE(second.waitForLog("Clicks go over a socket of the desktop's own"))
        << second.story();
    EXPECT_TRUE(second.waitForLog("Clicker finished after 20 clicks (limit reached)"))
        << second.story();
    EXPECT_TRUE(client_.waitForClicks(20));
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(client_.pressCount(), 20);
}

TEST_F(GnomeTest, ARevokedConsentEndsTheRunWithTheButtonUp) {
    const auto corvane = start({.clickRate = 50});
    toggle();
    ASSERT_TRUE(waitForMoreClicks(5)) << corvane->story();
    gnome_.revokeConsent();
    EXPECT_TRUE(
        corvane->waitForLog("The desktop's portal has ended the session in which Corvane clicks"))
        << corvane->story();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(waitUntil([&] { return client_.pressCount() == client_.releaseCount(); }));
    EXPECT_TRUE(staysQuiet());
    CorvaneProcess command(desktop_, {.arguments = {"start"}});
    EXPECT_NE(command.process().waitForEnd(), (ProcessEnd{.exitCode = 0}));
}

} // namespace

} // namespace corvane::desktop
