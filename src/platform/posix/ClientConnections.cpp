#include "platform/posix/ClientConnections.h"

#include "platform/MainQueue.h"
#include "platform/posix/UnixSocket.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <sys/socket.h>
#include <unistd.h>

namespace corvane::posix {

namespace {

using Clock = std::chrono::steady_clock;

/// Positions among the watched descriptors; the wake-up pipe is the first.
constexpr std::size_t listenerIndex = 1;
constexpr std::size_t connectionsIndex = 2;

bool isTemporary(int error) { return error == EAGAIN || error == EINTR; }

} // namespace

CommandSocket::ClientConnections::ClientConnections(
    ListeningSocket listener, platform::MainQueue &mainQueue,
    platform::CommandEndpoint::RequestHandler handler, const Options &options)
    : mainQueue_(mainQueue),
      handler_(std::move(handler)),
      options_(options),
      nextPathCheck_(Clock::now() + options.pathCheckPeriod),
      listener_(std::move(listener)) {
    std::array<int, 2> ends{-1, -1};
    if (pipe(ends.data()) == 0) {
        wakeUpRead_ = FileDescriptor(ends[0]);
        wakeUpWrite_ = FileDescriptor(ends[1]);
        makeNonBlocking(wakeUpRead_);
        makeNonBlocking(wakeUpWrite_);
    }
}

void CommandSocket::ClientConnections::serve() {
    for (bool isEnding = false; !isEnding;) {
        std::vector<pollfd> descriptors = watched();
        if (poll(descriptors.data(), static_cast<unsigned>(descriptors.size()),
                 millisecondsToNextDeadline()) < 0) {
            continue;
        }
        std::array<char, 64> wakeUps{};
        while (::read(wakeUpRead_.get(), wakeUps.data(), wakeUps.size()) > 0) {
        }
        {
            const std::lock_guard lock(mutex_);
            isEnding = isEnding_;
        }
        for (std::size_t index = 0; index < connections_.size(); ++index) {
            attend(connections_[index], descriptors[connectionsIndex + index].revents);
        }
        takeAnswers();
        if (descriptors[listenerIndex].revents != 0) {
            acceptNew();
        }
        dropDone();
        keepPath();
    }
}

void CommandSocket::ClientConnections::hide() {
    const std::lock_guard lock(mutex_);
    listener_.removePath();
}

void CommandSocket::ClientConnections::keepPath() {
    if (Clock::now() >= nextPathCheck_) {
        nextPathCheck_ = Clock::now() + options_.pathCheckPeriod;
        const std::lock_guard lock(mutex_);
        listener_.keepPath();
    }
}

void CommandSocket::ClientConnections::end() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    wakeUp();
}

std::vector<pollfd> CommandSocket::ClientConnections::watched() const {
    const bool hasRoom = connections_.size() < options_.mostConnections;
    std::vector<pollfd> descriptors{
        {.fd = wakeUpRead_.get(), .events = POLLIN, .revents = 0},
        {.fd = hasRoom ? listener_.descriptor() : -1, .events = POLLIN, .revents = 0}};
    for (const Connection &connection : connections_) {
        // A client that waits for its reply can only hang up. Some systems do not report that
        // without an event to wait for.
        const short events = connection.hasRequest && !connection.unsent.empty() ? POLLOUT : POLLIN;
        descriptors.push_back({.fd = connection.socket.get(), .events = events, .revents = 0});
    }
    return descriptors;
}

int CommandSocket::ClientConnections::millisecondsToNextDeadline() const {
    Clock::time_point next = nextPathCheck_;
    for (const Connection &connection : connections_) {
        if (!connection.hasRequest) {
            next = std::min(next, connection.deadline);
        }
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(
        std::max(next - Clock::now(), Clock::duration::zero()));
    return static_cast<int>(left.count());
}

void CommandSocket::ClientConnections::acceptNew() {
    FileDescriptor socket(accept(listener_.descriptor(), nullptr, nullptr));
    if (!socket.isOpen() || peerOf(socket) != options_.user) {
        return;
    }
    makeNonBlocking(socket);
    connections_.push_back({.number = ++nextNumber_,
                            .socket = std::move(socket),
                            .request = MessageReader(options_.longestRequest),
                            .deadline = Clock::now() + options_.requestTimeout});
}

void CommandSocket::ClientConnections::attend(Connection &connection, short events) {
    if (!connection.hasRequest) {
        if (events != 0) {
            read(connection);
        }
        connection.isDone =
            connection.isDone || (!connection.hasRequest && Clock::now() >= connection.deadline);
    } else if ((events & POLLOUT) != 0) {
        send(connection);
    } else if (events != 0) {
        connection.isDone = true;
    }
}

void CommandSocket::ClientConnections::read(Connection &connection) {
    std::array<char, 4096> bytes{};
    const ssize_t count = ::read(connection.socket.get(), bytes.data(), bytes.size());
    if (count <= 0) {
        connection.isDone = count == 0 || !isTemporary(errno);
        return;
    }
    switch (connection.request.append({bytes.data(), static_cast<std::size_t>(count)})) {
    case MessageReader::State::incomplete:
        return;
    case MessageReader::State::malformed:
        connection.isDone = true;
        return;
    case MessageReader::State::complete:
        connection.hasRequest = true;
        handle(connection);
    }
}

void CommandSocket::ClientConnections::send(Connection &connection) {
    const ssize_t count = sendSome(connection.socket, connection.unsent);
    if (count < 0) {
        connection.isDone = !isTemporary(errno);
        return;
    }
    connection.unsent.erase(0, static_cast<std::size_t>(count));
    connection.isDone = connection.unsent.empty();
}

void CommandSocket::ClientConnections::handle(const Connection &connection) {
    mainQueue_.post([held = weak_from_this(), number = connection.number,
                     request = connection.request.words()] {
        if (const auto self = held.lock()) {
            self->handler_(request, [held, number](const CommandReply &reply) {
                if (const auto connections = held.lock()) {
                    connections->reply(number, reply);
                }
            });
        }
    });
}

void CommandSocket::ClientConnections::reply(std::uint64_t number, const CommandReply &reply) {
    {
        const std::lock_guard lock(mutex_);
        replies_.emplace_back(number, encodeReply(reply));
    }
    wakeUp();
}

void CommandSocket::ClientConnections::takeAnswers() {
    std::vector<std::pair<std::uint64_t, std::string>> replies;
    {
        const std::lock_guard lock(mutex_);
        replies.swap(replies_);
    }
    for (auto &[number, text] : replies) {
        const auto connection = std::ranges::find(connections_, number, &Connection::number);
        if (connection != connections_.end() && !connection->isDone) {
            connection->unsent = std::move(text);
            send(*connection);
        }
    }
}

void CommandSocket::ClientConnections::dropDone() {
    std::erase_if(connections_, [](const Connection &connection) { return connection.isDone; });
}

/// The pipe may be full: then the thread wakes up anyway.
void CommandSocket::ClientConnections::wakeUp() const {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wakeUpWrite_.get(), &byte, 1);
}

} // namespace corvane::posix
