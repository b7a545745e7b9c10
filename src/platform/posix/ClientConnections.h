#pragma once

#include "platform/CommandEndpoint.h"
#include "platform/posix/CommandMessage.h"
#include "platform/posix/CommandSocket.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/posix/ListeningSocket.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <poll.h>

namespace corvane::posix {

/// The clients connected to the command socket: reads their requests, passes them on to the main
/// thread and sends the replies.
class CommandSocket::ClientConnections
    : public std::enable_shared_from_this<CommandSocket::ClientConnections> {
  public:
    /// The main queue outlives the thread that serves.
    ClientConnections(ListeningSocket listener, platform::MainQueue &mainQueue,
                      platform::CommandEndpoint::RequestHandler handler, const Options &options);

    /// Serves until `end` is called. The socket's own thread.
    void serve();

    /// Removes the socket's path, so that no more clients find it. Main thread.
    void hide();

    /// Makes `serve` send the replies given by now and return. Main thread.
    void end();

  private:
    struct Connection {
        std::uint64_t number;
        FileDescriptor socket;
        MessageReader request;
        std::chrono::steady_clock::time_point deadline;
        bool hasRequest = false;
        std::string unsent{};
        bool isDone = false;
    };

    std::vector<pollfd> watched() const;
    int millisecondsToNextDeadline() const;
    void keepPath();
    void acceptNew();
    void attend(Connection &connection, short events);
    void read(Connection &connection);
    static void send(Connection &connection);
    void handle(const Connection &connection);
    void reply(std::uint64_t number, const CommandReply &reply);
    void takeAnswers();
    void dropDone();
    void wakeUp() const;

    platform::MainQueue &mainQueue_;
    const platform::CommandEndpoint::RequestHandler handler_;
    const Options options_;
    FileDescriptor wakeUpRead_;
    FileDescriptor wakeUpWrite_;
    /// Used by the socket's own thread only.
    std::vector<Connection> connections_;
    std::uint64_t nextNumber_ = 0;
    std::chrono::steady_clock::time_point nextPathCheck_;

    std::mutex mutex_;
    ListeningSocket listener_;
    std::vector<std::pair<std::uint64_t, std::string>> replies_;
    bool isEnding_ = false;
};

} // namespace corvane::posix
