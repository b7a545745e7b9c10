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

/// Those who have connected to the command socket: reads what they ask, passes it on to the main
/// thread and sends what it answers.
class CommandSocket::Senders : public std::enable_shared_from_this<CommandSocket::Senders> {
  public:
    /// The main queue outlives the thread that serves.
    Senders(ListeningSocket listener, platform::MainQueue &mainQueue,
            platform::CommandEndpoint::Obey obey, const Options &options);

    /// Serves until asked to end. The socket's own thread.
    void serve();

    /// Takes the socket's path away: whoever comes from now on finds nobody. Main thread.
    void hide();

    /// Lets `serve` send the answers given by now and return. Main thread.
    void end();

  private:
    struct Sender {
        std::uint64_t number;
        FileDescriptor connection;
        MessageReader request;
        std::chrono::steady_clock::time_point deadline;
        bool hasAsked = false;
        std::string unsent{};
        bool isDone = false;
    };

    std::vector<pollfd> watched() const;
    int millisecondsToNextDeadline() const;
    void keepPath();
    void takeNew();
    void attend(Sender &sender, short events);
    void read(Sender &sender);
    static void send(Sender &sender);
    void obey(const Sender &sender);
    void answer(std::uint64_t number, const CommandAnswer &answer);
    void takeAnswers();
    void dropDone();
    void wakeUp() const;

    platform::MainQueue &mainQueue_;
    const platform::CommandEndpoint::Obey obey_;
    const Options options_;
    FileDescriptor wakeUpRead_;
    FileDescriptor wakeUpWrite_;
    /// Only the socket's own thread.
    std::vector<Sender> senders_;
    std::uint64_t nextNumber_ = 0;
    std::chrono::steady_clock::time_point nextPathCheck_;

    std::mutex mutex_;
    ListeningSocket listener_;
    std::vector<std::pair<std::uint64_t, std::string>> answers_;
    bool isEnding_ = false;
};

} // namespace corvane::posix
