#include "platform/freedesktop/bus/SessionBus.h"

#include "EventLoop.h"
#include "TemporaryFolder.h"
#include "WindowSystemTest.h"
#include "platform/posix/UnixSocket.h"

#include <array>
#include <memory>

#include <sys/socket.h>
#include <unistd.h>

namespace corvane::contract {

namespace {

using freedesktop::SessionBus;

class SessionBusTest : public WindowSystemTest {
  protected:
    SessionBusTest() : WindowSystemTest({.windowManager = desktop::WindowManager::none}) {}

    std::unique_ptr<SessionBus> connect(uid_t user = geteuid()) {
        return std::make_unique<SessionBus>(
            [this] { ++changes_; }, desktop_.environment().at("DBUS_SESSION_BUS_ADDRESS"), user);
    }

    bool awaitChanges(int count) {
        return turnUntil([this, count] { return changes_ == count; });
    }

    /// Whether the bus answers.
    static bool isAlive(SessionBus &bus) {
        freedesktop::BusConnection &connection = bus.connection();
        return !connection
                    .callAndWait(connection.newCall(freedesktop::busMethod("ListNames")),
                                 desktop::timeLimit)
                    .isError();
    }

    int changes_ = 0;
};

TEST_F(SessionBusTest, ConnectsAtOnce) {
    const auto bus = connect();
    EXPECT_TRUE(isAlive(*bus));
    EXPECT_EQ(changes_, 0);
}

TEST_F(SessionBusTest, ConnectsAgainAsOftenAsTheBusIsReplaced) {
    const auto bus = connect();
    for (int round = 0; round < 3; ++round) {
        desktop_.stopMessageBus();
        ASSERT_TRUE(awaitChanges(2 * round + 1));
        EXPECT_FALSE(bus->connection().isOpen());
        desktop_.startMessageBus();
        ASSERT_TRUE(awaitChanges(2 * round + 2));
        EXPECT_TRUE(isAlive(*bus));
    }
}

TEST_F(SessionBusTest, ConnectsToABusThatComesLater) {
    desktop_.stopMessageBus();
    const auto bus = connect();
    EXPECT_FALSE(bus->connection().isOpen());
    desktop_.startMessageBus();
    ASSERT_TRUE(awaitChanges(1));
    EXPECT_TRUE(isAlive(*bus));
}

TEST_F(SessionBusTest, DoesNotWaitForABusThatIsSilent) {
    const auto bus = connect();
    desktop_.stopMessageBus();
    const auto silent = posix::listenAt(desktop_.folder() / "bus" / "bus");
    ASSERT_TRUE(silent);
    for (int search = 0; search < 2; ++search) {
        posix::FileDescriptor caller;
        ASSERT_TRUE(turnUntil([&] {
            caller = posix::FileDescriptor(accept(silent->get(), nullptr, nullptr));
            return caller.isOpen();
        }));
        std::array<char, 64> bytes{};
        EXPECT_GT(read(caller.get(), bytes.data(), bytes.size()), 0);
        ASSERT_TRUE(turnUntil(
            [&] { return recv(caller.get(), bytes.data(), bytes.size(), MSG_DONTWAIT) == 0; }));
    }
    EXPECT_FALSE(bus->connection().isOpen());
    desktop_.startMessageBus();
    EXPECT_TRUE(turnUntil([&] { return isAlive(*bus); }));
}

TEST_F(SessionBusTest, SeveralAreClientsOfTheirOwn) {
    const auto one = connect();
    const auto other = connect();
    EXPECT_NE(one->connection().name(), other->connection().name());
}

TEST_F(SessionBusTest, ABusOfAnotherUserDoesNotTakeThePlace) {
    const auto trusting = connect();
    const auto wary = connect(geteuid() + 1);
    // Both look around at the same pace.
    for (int round = 0; round < 2; ++round) {
        desktop_.stopMessageBus();
        ASSERT_TRUE(turnUntil([&] { return !trusting->connection().isOpen(); }));
        desktop_.startMessageBus();
        ASSERT_TRUE(turnUntil([&] { return isAlive(*trusting); }));
    }
    EXPECT_FALSE(wary->connection().isOpen());
}

TEST(SessionBusWithoutAddressTest, HasNoConnection) {
    SessionBus bus([] { ADD_FAILURE() << "nothing can change"; }, "");
    EXPECT_FALSE(bus.connection().isOpen());
}

class SessionBusAddressTest : public testing::Test {
  protected:
    desktop::TemporaryFolder folder_;
    const EnvironmentVariable runtime_{"XDG_RUNTIME_DIR", folder_.path().string()};
};

TEST_F(SessionBusAddressTest, IsWhatTheSessionSays) {
    const EnvironmentVariable named("DBUS_SESSION_BUS_ADDRESS", "unix:path=/somewhere");
    EXPECT_EQ(freedesktop::sessionBusAddress(), "unix:path=/somewhere");
}

TEST_F(SessionBusAddressTest, IsElseInTheRuntimeFolder) {
    const EnvironmentVariable named("DBUS_SESSION_BUS_ADDRESS", "");
    EXPECT_EQ(freedesktop::sessionBusAddress(), "unix:path=" + (folder_.path() / "bus").string());
}

TEST_F(SessionBusAddressTest, IsElseNowhere) {
    const EnvironmentVariable named("DBUS_SESSION_BUS_ADDRESS", "");
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", "/nowhere");
    EXPECT_EQ(freedesktop::sessionBusAddress(), "");
    freedesktop::preventBusLaunch();
    EXPECT_EQ(freedesktop::sessionBusAddress(), "");
    EXPECT_NE(qgetenv("DBUS_SESSION_BUS_ADDRESS"), QByteArray());
}

} // namespace

} // namespace corvane::contract
