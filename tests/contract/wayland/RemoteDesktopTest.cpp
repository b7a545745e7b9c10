#include "platform/wayland/portal/RemoteDesktop.h"

#include "EventLoop.h"
#include "FakePortal.h"
#include "TemporaryFolder.h"
#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/wayland/portal/MouseEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <thread>
#include <utility>

namespace corvane::contract {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Pair;

namespace {

using wayland::portal::Consent;
using wayland::portal::RemoteDesktop;
using wayland::portal::RestoreToken;

class RemoteDesktopTest : public testing::Test {
  protected:
    RemoteDesktopTest() {
        bus_ = QDBusConnection::connectToBus(
            QString::fromStdString(freedesktop::sessionBusAddress()), u"portal-client"_s);
    }
    ~RemoteDesktopTest() override { QDBusConnection::disconnectFromBus(bus_.name()); }

    /// The consent after the user's answer.
    Consent ask(RemoteDesktop &remoteDesktop) const {
        remoteDesktop.ask();
        EXPECT_EQ(remoteDesktop.consent(), Consent::asked);
        turnUntil([&] { return remoteDesktop.consent() != Consent::asked; });
        return remoteDesktop.consent();
    }

    desktop::TemporaryFolder folder_;
    const std::filesystem::path tokenFile_ = folder_.path() / "corvane" / "token";
    QDBusConnection bus_{QString()};
};

TEST_F(RemoteDesktopTest, IsOfferedWhereThePortalHasAPointer) {
    EXPECT_FALSE(RemoteDesktop::isOffered(bus_));
    {
        const FakePortal withKeyboard({.deviceTypes = 1});
        EXPECT_FALSE(RemoteDesktop::isOffered(bus_));
    }
    const FakePortal portal;
    EXPECT_TRUE(RemoteDesktop::isOffered(bus_));
}

TEST_F(RemoteDesktopTest, IsGivenThePointerAndTheChosenMonitors) {
    const FakePortal portal;
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    EXPECT_EQ(remoteDesktop.consent(), Consent::notAsked);
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    ASSERT_NE(remoteDesktop.session(), nullptr);
    EXPECT_THAT(remoteDesktop.session()->streams(),
                ElementsAre(wayland::portal::Stream{.node = 41, .frame = {1280, 0, 800, 600}}));
    EXPECT_THAT(portal.devicesAsked(), Contains(Pair("types", "2")));
    EXPECT_THAT(portal.sourcesAsked(), IsSupersetOf({Pair("types", "1"), Pair("cursor_mode", "4"),
                                                     Pair("multiple", "true")}));
}

TEST_F(RemoteDesktopTest, PressesTheButtonFromAnotherThread) {
    const FakePortal portal;
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    std::thread([session = remoteDesktop.session()] {
        for (const bool isPressed : {true, false, true, false}) {
            session->setButton(isPressed);
        }
    }).join();
    EXPECT_TRUE(turnUntil([&] { return portal.buttons().size() == 4; }));
    EXPECT_THAT(portal.buttons(), ElementsAre(1U, 0U, 1U, 0U));
}

TEST_F(RemoteDesktopTest, IsRefusedByTheUserAndMayBeAskedAgain) {
    FakePortal portal({.response = 1});
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    EXPECT_EQ(ask(remoteDesktop), Consent::refused);
    EXPECT_EQ(remoteDesktop.session(), nullptr);
    portal.setResponse(0);
    EXPECT_EQ(ask(remoteDesktop), Consent::given);
}

TEST_F(RemoteDesktopTest, IsOfNoUseWithoutThePointerOrAMonitor) {
    {
        const FakePortal portal({.devices = 0});
        RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
        EXPECT_EQ(ask(remoteDesktop), Consent::withoutPointer);
        EXPECT_TRUE(turnUntil([&] { return portal.closedSessions() == 1; }));
    }
    const FakePortal portal({.hasStream = false});
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    EXPECT_EQ(ask(remoteDesktop), Consent::withoutMonitor);
    EXPECT_TRUE(turnUntil([&] { return portal.closedSessions() == 1; }));
}

TEST_F(RemoteDesktopTest, PressesNothingOnceTheUserHasEndedTheSession) {
    FakePortal portal;
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    const auto session = remoteDesktop.session();
    portal.endSession();
    EXPECT_TRUE(turnUntil([&] { return remoteDesktop.consent() == Consent::ended; }));
    EXPECT_FALSE(session->isOpen());
    EXPECT_EQ(remoteDesktop.session(), nullptr);
    session->setButton(true);
    // Behind the answers to this, no older call is on its way.
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    EXPECT_THAT(portal.buttons(), ElementsAre());
}

TEST_F(RemoteDesktopTest, EndsWithThePortal) {
    auto portal = std::make_unique<FakePortal>();
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    const auto session = remoteDesktop.session();
    portal.reset();
    EXPECT_TRUE(turnUntil([&] { return remoteDesktop.consent() == Consent::ended; }));
    EXPECT_FALSE(session->isOpen());
}

TEST_F(RemoteDesktopTest, StopsWaitingForAnAnswerWhenThePortalEnds) {
    auto portal = std::make_unique<FakePortal>(FakePortal::Options{.answers = false});
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    remoteDesktop.ask();
    EXPECT_TRUE(turnUntil([&] { return !portal->sourcesAsked().empty(); }));
    portal.reset();
    EXPECT_TRUE(turnUntil([&] { return remoteDesktop.consent() != Consent::asked; }));
    EXPECT_NE(remoteDesktop.consent(), Consent::given);
}

TEST_F(RemoteDesktopTest, HandsTheTokenOfTheLastTimeBack) {
    const FakePortal portal({.restoreToken = u"from-last-time"_s});
    {
        RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
        EXPECT_FALSE(remoteDesktop.remembersConsent());
        ASSERT_EQ(ask(remoteDesktop), Consent::given);
        EXPECT_THAT(portal.devicesAsked(), Contains(Pair("persist_mode", "2")));
        EXPECT_FALSE(portal.devicesAsked().contains("restore_token"));
    }
    EXPECT_EQ(std::filesystem::status(tokenFile_).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    EXPECT_TRUE(remoteDesktop.remembersConsent());
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    EXPECT_THAT(portal.devicesAsked(), Contains(Pair("restore_token", "from-last-time")));
}

TEST_F(RemoteDesktopTest, AsksAnOldPortalForNoToken) {
    const FakePortal portal({.version = 1});
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    EXPECT_FALSE(portal.devicesAsked().contains("persist_mode"));
}

TEST_F(RemoteDesktopTest, MakesNoClickWhereTheCursorCannotBeFound) {
    const FakePortal portal;
    RemoteDesktop remoteDesktop(bus_, RestoreToken(tokenFile_));
    ASSERT_EQ(ask(remoteDesktop), Consent::given);
    wayland::portal::MouseEvents mouse;
    EXPECT_EQ(mouse.openSession()->readyPosition(), std::nullopt);
    mouse.use(remoteDesktop.session());
    EXPECT_EQ(mouse.openSession()->readyPosition(), std::nullopt);
}

} // namespace

} // namespace corvane::contract
