#include "BackEnd.h"
#include "TemporaryFolder.h"
#include "platform/Platform.h"
#include "platform/posix/CommandClient.h"
#include "platform/posix/CommandMessage.h"
#include "platform/posix/CommandSocket.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/UnixSocket.h"

#include <gmock/gmock.h>

#include <array>
#include <future>
#include <vector>

#include <sys/socket.h>
#include <sys/stat.h>

namespace corvane::contract {

namespace {

using posix::CommandSocket;
using posix::FileDescriptor;
using testing::ElementsAre;

constexpr std::chrono::seconds timeLimit{20};

/// The socket with each back end's main queue behind it.
class CommandSocketContract : public ContractTest {
  protected:
    /// Replies to each request with its own words.
    void open(const CommandSocket::Options &options = {}) {
        auto socket = CommandSocket::open(
            path_, platform().mainQueue(),
            [this](const CommandRequest &request, const SendReply &sendReply) {
                requests_.push_back(request);
                sendReply({.output = posix::encodeWords(request)});
            },
            options);
        ASSERT_TRUE(socket) << socket.error().description;
        socket_ = std::move(*socket);
    }

    std::future<std::optional<CommandReply>> send(const CommandRequest &request) {
        return std::async(std::launch::async, [request, path = path_] {
            return posix::sendCommand(path, request, timeLimit);
        });
    }

    bool wait(const std::future<std::optional<CommandReply>> &reply) {
        return backEnd().turnUntil([&reply] {
            return reply.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        });
    }

    /// Waits until the program has hung up.
    bool isTurnedAway(const FileDescriptor &connection) {
        return backEnd().turnUntil([&connection] {
            char byte = 0;
            return recv(connection.get(), &byte, 1, MSG_DONTWAIT) == 0;
        });
    }

    desktop::TemporaryFolder folder_;
    const std::filesystem::path path_ = folder_.path() / "corvane" / "display_0.socket";
    std::vector<CommandRequest> requests_;
    std::unique_ptr<CommandSocket> socket_;
};

TEST_P(CommandSocketContract, AnswersARequest) {
    open();
    auto reply = send({"profile", "load", "Zwei Wörter"});
    ASSERT_TRUE(wait(reply));
    EXPECT_EQ(reply.get()->output, posix::encodeWords({"profile", "load", "Zwei Wörter"}));
}

TEST_P(CommandSocketContract, AnswersARequestWithoutWords) {
    open();
    auto reply = send({});
    ASSERT_TRUE(wait(reply));
    EXPECT_THAT(requests_, ElementsAre(CommandRequest{}));
}

TEST_P(CommandSocketContract, AnswersManyAtOnce) {
    open({.mostConnections = 8});
    std::array<std::future<std::optional<CommandReply>>, 50> replies;
    for (std::size_t number = 0; number < replies.size(); ++number) {
        replies[number] = send({std::to_string(number)});
    }
    for (std::size_t number = 0; number < replies.size(); ++number) {
        ASSERT_TRUE(wait(replies[number]));
        EXPECT_EQ(replies[number].get()->output, posix::encodeWords({std::to_string(number)}));
    }
    EXPECT_EQ(requests_.size(), replies.size());
}

TEST_P(CommandSocketContract, ALongAnswerArrivesWhole) {
    const std::string text(3'000'000, 'x');
    auto socket = CommandSocket::open(path_, platform().mainQueue(),
                                      [&text](const CommandRequest &, const SendReply &sendReply) {
                                          sendReply({.output = text});
                                      },
                                      {});
    ASSERT_TRUE(socket);
    auto reply = send({"status"});
    ASSERT_TRUE(wait(reply));
    EXPECT_EQ(reply.get()->output, text);
}

TEST_P(CommandSocketContract, TurnsOtherUsersAway) {
    open({.user = geteuid() + 1});
    auto reply = send({"start"});
    ASSERT_TRUE(wait(reply));
    EXPECT_EQ(reply.get(), noReply());
    EXPECT_TRUE(requests_.empty());
}

TEST_P(CommandSocketContract, TurnsGarbageAway) {
    open();
    for (const char *garbage : {"GET / HTTP/1.1\r\n\r\n", "\n", "5:start,", "3:0:,junk"}) {
        const auto connection = posix::connectTo(path_);
        ASSERT_TRUE(connection);
        posix::sendSome(*connection, garbage);
        EXPECT_TRUE(isTurnedAway(*connection)) << garbage;
    }
    EXPECT_TRUE(requests_.empty());
    auto reply = send({"status"});
    EXPECT_TRUE(wait(reply));
}

TEST_P(CommandSocketContract, TurnsAwayWhatIsTooLong) {
    open({.longestRequest = 100});
    const auto connection = posix::connectTo(path_);
    ASSERT_TRUE(connection);
    posix::sendSome(*connection, posix::encodeWords({std::string(200, 'x')}));
    EXPECT_TRUE(isTurnedAway(*connection));
    EXPECT_TRUE(requests_.empty());
}

TEST_P(CommandSocketContract, DropsHalfARequest) {
    open({.requestTimeout = std::chrono::milliseconds(50)});
    const std::string whole = posix::encodeWords({"start"});
    const auto slow = posix::connectTo(path_);
    ASSERT_TRUE(slow);
    posix::sendSome(*slow, whole.substr(0, whole.size() - 1));
    {
        const auto gone = posix::connectTo(path_);
        ASSERT_TRUE(gone);
        posix::sendSome(*gone, whole.substr(0, whole.size() - 1));
    }
    EXPECT_TRUE(isTurnedAway(*slow));
    EXPECT_TRUE(requests_.empty());
}

TEST_P(CommandSocketContract, SilentClientsDelayOthersOnlyBriefly) {
    open({.requestTimeout = std::chrono::milliseconds(50), .mostConnections = 2});
    std::array<std::optional<FileDescriptor>, 5> silent;
    for (auto &sender : silent) {
        sender = posix::connectTo(path_);
    }
    auto reply = send({"status"});
    ASSERT_TRUE(wait(reply));
    EXPECT_EQ(reply.get()->result, CommandResult::done);
}

TEST_P(CommandSocketContract, AnAnswerGivenBeforeTheEndArrives) {
    open();
    auto reply = send({"quit"});
    ASSERT_TRUE(backEnd().turnUntil([this] { return !requests_.empty(); }));
    socket_.reset();
    EXPECT_EQ(reply.get()->output, posix::encodeWords({"quit"}));
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_EQ(posix::sendCommand(path_, {"status"}, timeLimit), std::nullopt);
}

TEST_P(CommandSocketContract, WhoReadsTheGoodbyeFindsNobodyRunning) {
    SendReply goodbye;
    auto socket = CommandSocket::open(
        path_, platform().mainQueue(),
        [&goodbye](const CommandRequest &, const SendReply &sendReply) { goodbye = sendReply; },
        {});
    ASSERT_TRUE(socket);
    auto next = std::async(std::launch::async, [path = path_] {
        const auto reply = posix::sendCommand(path, {"quit"}, timeLimit);
        return std::pair(reply, posix::sendCommand(path, {"start"}, timeLimit));
    });
    ASSERT_TRUE(backEnd().turnUntil([&goodbye] { return goodbye != nullptr; }));
    (*socket)->close([&goodbye] { goodbye({.output = "bye"}); });
    const auto [reply, afterwards] = next.get();
    EXPECT_EQ(reply, (CommandReply{.output = "bye"}));
    EXPECT_EQ(afterwards, std::nullopt);
}

TEST_P(CommandSocketContract, ALateAnswerGoesNowhere) {
    SendReply late;
    auto socket = CommandSocket::open(
        path_, platform().mainQueue(),
        [&late](const CommandRequest &, const SendReply &sendReply) { late = sendReply; }, {});
    ASSERT_TRUE(socket);
    auto reply = send({"stop"});
    ASSERT_TRUE(backEnd().turnUntil([&late] { return late != nullptr; }));
    socket->reset();
    late({});
    EXPECT_EQ(reply.get(), noReply());
}

TEST_P(CommandSocketContract, TakesThePlaceOfWhatAnUnexpectedEndLeft) {
    open();
    std::filesystem::rename(path_, folder_.path() / "kept");
    socket_.reset();
    std::filesystem::rename(folder_.path() / "kept", path_);
    EXPECT_EQ(posix::sendCommand(path_, {"status"}, timeLimit), std::nullopt);
    open();
    auto reply = send({"status"});
    EXPECT_TRUE(wait(reply));
}

TEST_P(CommandSocketContract, IsThereAgainAfterItsFileHasGone) {
    open({.pathCheckPeriod = std::chrono::milliseconds(5)});
    for (const auto &swept : {path_, path_.parent_path()}) {
        std::filesystem::remove_all(swept);
        ASSERT_TRUE(backEnd().turnUntil([this] { return std::filesystem::exists(path_); }));
        auto reply = send({"status"});
        ASSERT_TRUE(wait(reply));
        EXPECT_EQ(reply.get()->result, CommandResult::done);
    }
    socket_.reset();
    EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_P(CommandSocketContract, LeavesItsPathToAnotherAsLongAsThatOneListens) {
    open({.pathCheckPeriod = std::chrono::milliseconds(1)});
    {
        const auto other = posix::listenAt(path_);
        ASSERT_TRUE(other);
        // Each check of the path ends in a connection that the other has to take.
        for (int check = 0; check < 3; ++check) {
            ASSERT_TRUE(backEnd().turnUntil([&other] {
                return FileDescriptor(accept(other->get(), nullptr, nullptr)).isOpen();
            }));
        }
    }
    ASSERT_TRUE(backEnd().turnUntil([this] { return posix::connectTo(path_).has_value(); }));
    auto reply = send({"status"});
    ASSERT_TRUE(wait(reply));
    EXPECT_EQ(reply.get()->result, CommandResult::done);
}

TEST_P(CommandSocketContract, LeavesTheFileOfAnotherWhenItEnds) {
    open();
    const auto other = posix::listenAt(path_);
    ASSERT_TRUE(other);
    socket_.reset();
    EXPECT_TRUE(std::filesystem::exists(path_));
}

TEST_P(CommandSocketContract, OneThatHangsUpWhileItWaitsMakesRoomForTheNext) {
    SendReply late;
    auto socket =
        CommandSocket::open(path_, platform().mainQueue(),
                            [&late](const CommandRequest &request, const SendReply &sendReply) {
                                if (request.empty()) {
                                    late = sendReply;
                                } else {
                                    sendReply({});
                                }
                            },
                            {.mostConnections = 1});
    ASSERT_TRUE(socket);
    {
        const auto gone = posix::connectTo(path_);
        ASSERT_TRUE(gone);
        posix::sendSome(*gone, posix::encodeWords({}));
        ASSERT_TRUE(backEnd().turnUntil([&late] { return late != nullptr; }));
    }
    auto reply = send({"status"});
    ASSERT_TRUE(wait(reply));
    EXPECT_EQ(reply.get()->result, CommandResult::done);
}

TEST_P(CommandSocketContract, IsClosedToOthers) {
    open();
    EXPECT_TRUE(posix::isPrivateFolder(path_.parent_path()));
    struct stat status{};
    ASSERT_EQ(stat(path_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0077U, 0U);
}

TEST_P(CommandSocketContract, AFolderOpenToOthersIsNotUsed) {
    std::filesystem::create_directory(path_.parent_path());
    std::filesystem::permissions(path_.parent_path(), std::filesystem::perms::group_all,
                                 std::filesystem::perm_options::add);
    EXPECT_FALSE(CommandSocket::open(path_, platform().mainQueue(), {}, {}));
    EXPECT_EQ(posix::sendCommand(path_, {"start"}, timeLimit), std::nullopt);
}

TEST_P(CommandSocketContract, ALinkInPlaceOfTheFolderIsNotFollowed) {
    std::filesystem::create_directory(folder_.path() / "elsewhere");
    std::filesystem::permissions(folder_.path() / "elsewhere", std::filesystem::perms::owner_all);
    std::filesystem::create_directory_symlink(folder_.path() / "elsewhere", path_.parent_path());
    EXPECT_FALSE(CommandSocket::open(path_, platform().mainQueue(), {}, {}));
}

TEST_P(CommandSocketContract, APathThatIsTooLongIsAFailure) {
    const auto socket =
        CommandSocket::open(folder_.path() / std::string(150, 'x'), platform().mainQueue(), {}, {});
    EXPECT_FALSE(socket);
}

CORVANE_CONTRACT(CommandSocketContract);

} // namespace

} // namespace corvane::contract
