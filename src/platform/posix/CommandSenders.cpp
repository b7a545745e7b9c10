#include "platform/posix/CommandSenders.h"

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

/// Among what is watched, behind the wake-up.
constexpr std::size_t listenerPlace = 1;
constexpr std::size_t sendersPlace = 2;

bool isPassing(int error) { return error == EAGAIN || error == EINTR; }

} // namespace

CommandSocket::Senders::Senders(ListeningSocket listener, platform::MainQueue &mainQueue,
                                platform::CommandEndpoint::Obey obey, const Options &options)
    : mainQueue_(mainQueue),
      obey_(std::move(obey)),
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

void CommandSocket::Senders::serve() {
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
        for (std::size_t index = 0; index < senders_.size(); ++index) {
            attend(senders_[index], descriptors[sendersPlace + index].revents);
        }
        takeAnswers();
        if (descriptors[listenerPlace].revents != 0) {
            takeNew();
        }
        dropDone();
        keepPath();
    }
}

void CommandSocket::Senders::hide() {
    const std::lock_guard lock(mutex_);
    listener_.removePath();
}

void CommandSocket::Senders::keepPath() {
    if (Clock::now() >= nextPathCheck_) {
        nextPathCheck_ = Clock::now() + options_.pathCheckPeriod;
        const std::lock_guard lock(mutex_);
        listener_.keepPath();
    }
}

void CommandSocket::Senders::end() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    wakeUp();
}

std::vector<pollfd> CommandSocket::Senders::watched() const {
    const bool hasRoom = senders_.size() < options_.mostConnections;
    std::vector<pollfd> descriptors{
        {.fd = wakeUpRead_.get(), .events = POLLIN, .revents = 0},
        {.fd = hasRoom ? listener_.descriptor() : -1, .events = POLLIN, .revents = 0}};
    for (const Sender &sender : senders_) {
        // From one who waits for the answer only the end can come. Without an event to wait for,
        // some systems do not report it.
        const short events = sender.hasAsked && !sender.unsent.empty() ? POLLOUT : POLLIN;
        descriptors.push_back({.fd = sender.connection.get(), .events = events, .revents = 0});
    }
    return descriptors;
}

int CommandSocket::Senders::millisecondsToNextDeadline() const {
    Clock::time_point next = nextPathCheck_;
    for (const Sender &sender : senders_) {
        if (!sender.hasAsked) {
            next = std::min(next, sender.deadline);
        }
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(
        std::max(next - Clock::now(), Clock::duration::zero()));
    return static_cast<int>(left.count());
}

void CommandSocket::Senders::takeNew() {
    FileDescriptor connection(accept(listener_.descriptor(), nullptr, nullptr));
    if (!connection.isOpen() || peerOf(connection) != options_.user) {
        return;
    }
    makeNonBlocking(connection);
    senders_.push_back({.number = ++nextNumber_,
                        .connection = std::move(connection),
                        .request = MessageReader(options_.longestRequest),
                        .deadline = Clock::now() + options_.patience});
}

void CommandSocket::Senders::attend(Sender &sender, short events) {
    if (!sender.hasAsked) {
        if (events != 0) {
            read(sender);
        }
        sender.isDone = sender.isDone || (!sender.hasAsked && Clock::now() >= sender.deadline);
    } else if ((events & POLLOUT) != 0) {
        send(sender);
    } else if (events != 0) {
        sender.isDone = true;
    }
}

void CommandSocket::Senders::read(Sender &sender) {
    std::array<char, 4096> bytes{};
    const ssize_t count = ::read(sender.connection.get(), bytes.data(), bytes.size());
    if (count <= 0) {
        sender.isDone = count == 0 || !isPassing(errno);
        return;
    }
    switch (sender.request.append({bytes.data(), static_cast<std::size_t>(count)})) {
    case MessageReader::State::incomplete:
        return;
    case MessageReader::State::malformed:
        sender.isDone = true;
        return;
    case MessageReader::State::complete:
        sender.hasAsked = true;
        obey(sender);
    }
}

void CommandSocket::Senders::send(Sender &sender) {
    const ssize_t count = sendSome(sender.connection, sender.unsent);
    if (count < 0) {
        sender.isDone = !isPassing(errno);
        return;
    }
    sender.unsent.erase(0, static_cast<std::size_t>(count));
    sender.isDone = sender.unsent.empty();
}

void CommandSocket::Senders::obey(const Sender &sender) {
    mainQueue_.post(
        [held = weak_from_this(), number = sender.number, request = sender.request.words()] {
            if (const auto self = held.lock()) {
                self->obey_(request, [held, number](const CommandAnswer &answer) {
                    if (const auto asked = held.lock()) {
                        asked->answer(number, answer);
                    }
                });
            }
        });
}

void CommandSocket::Senders::answer(std::uint64_t number, const CommandAnswer &answer) {
    {
        const std::lock_guard lock(mutex_);
        answers_.emplace_back(number, encodeAnswer(answer));
    }
    wakeUp();
}

void CommandSocket::Senders::takeAnswers() {
    std::vector<std::pair<std::uint64_t, std::string>> answers;
    {
        const std::lock_guard lock(mutex_);
        answers.swap(answers_);
    }
    for (auto &[number, text] : answers) {
        const auto sender = std::ranges::find(senders_, number, &Sender::number);
        if (sender != senders_.end() && !sender->isDone) {
            sender->unsent = std::move(text);
            send(*sender);
        }
    }
}

void CommandSocket::Senders::dropDone() {
    std::erase_if(senders_, [](const Sender &sender) { return sender.isDone; });
}

/// A full pipe wakes as well.
void CommandSocket::Senders::wakeUp() const {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wakeUpWrite_.get(), &byte, 1);
}

} // namespace corvane::posix
