#include "EventLoop.h"
#include "TemporaryFolder.h"
#include "harness/actors/AnotherUser.h"
#include "platform/linux/timing/MainQueue.h"
#include "platform/posix/CommandClient.h"
#include "platform/posix/CommandMessage.h"
#include "platform/posix/CommandSocket.h"
#include "platform/posix/UnixSocket.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <system_error>

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::contract {

namespace {

using desktop::actAs;
using posix::CommandSocket;
using posix::FileDescriptor;

/// What another user of the machine can do at the socket for commands.
class OtherUserAtSocketTest : public testing::TestWithParam<uid_t> {
  protected:
    OtherUserAtSocketTest() { allow(folder_.path(), 0777); }

    static void allow(const std::filesystem::path &path, mode_t mode) {
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
    }

    Outcome<std::unique_ptr<CommandSocket>> open() {
        return CommandSocket::open(path_, queue_,
                                   [this](const CommandRequest &, const SendReply &sendReply) {
                                       ++requests_;
                                       sendReply({});
                                   },
                                   {});
    }

    static bool isClosed(const FileDescriptor &connection) {
        char byte = 0;
        return recv(connection.get(), &byte, 1, MSG_DONTWAIT) == 0;
    }

    desktop::TemporaryFolder folder_;
    const std::filesystem::path path_ = folder_.path() / "corvane" / "display_0.socket";
    linux::MainQueue queue_;
    int requests_ = 0;
};

TEST_P(OtherUserAtSocketTest, CannotReachTheSocket) {
    const auto socket = open();
    ASSERT_TRUE(socket);
    ASSERT_TRUE(posix::connectTo(path_));
    actAs(GetParam(), [this] {
        EXPECT_FALSE(posix::connectTo(path_));
        std::error_code reason;
        EXPECT_FALSE(std::filesystem::exists(path_, reason));
        EXPECT_TRUE(reason == std::errc::permission_denied) << reason.message();
    });
}

TEST_P(OtherUserAtSocketTest, IsTurnedAwayWhereTheFolderHasBeenOpened) {
    const auto socket = open();
    ASSERT_TRUE(socket);
    allow(path_.parent_path(), 0777);
    allow(path_, 0777);
    std::optional<FileDescriptor> connection;
    actAs(GetParam(), [&] {
        connection = posix::connectTo(path_);
        ASSERT_TRUE(connection);
        posix::sendSome(*connection, posix::encodeWords({"start"}));
    });
    EXPECT_TRUE(turnUntil([&] { return isClosed(*connection); }));
    EXPECT_EQ(requests_, 0);
}

TEST_P(OtherUserAtSocketTest, GetsNoCommandsByHavingBeenThereFirst) {
    std::optional<FileDescriptor> trap;
    actAs(GetParam(), [&] {
        ASSERT_EQ(mkdir(path_.parent_path().c_str(), 0700), 0);
        auto listener = posix::listenAt(path_);
        ASSERT_TRUE(listener);
        trap = std::move(*listener);
    });
    EXPECT_FALSE(open());
    EXPECT_EQ(posix::sendCommand(path_, {"start"}, std::chrono::seconds(20)), std::nullopt);
    EXPECT_EQ(accept(trap->get(), nullptr, nullptr), -1);
}

// Who is not root cannot act as anybody else.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(OtherUserAtSocketTest);
INSTANTIATE_TEST_SUITE_P(Users, OtherUserAtSocketTest, testing::ValuesIn(desktop::otherUsers()));

} // namespace

} // namespace corvane::contract
