#include "platform/linux/UnixSignals.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace corvane::linux {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

/// Where the signal handler writes; -1 for nowhere.
std::atomic<int> signalPipe = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void passOn(int /*signal*/) {
    const int error = errno;
    const char byte = 0;
    // A full pipe already says what there is to say.
    [[maybe_unused]] const ssize_t written = write(signalPipe, &byte, 1);
    errno = error;
}

void setHandler(int signal, void (*handler)(int)) {
    struct sigaction action{};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

UnixSignals::UnixSignals(std::function<void()> endRequested)
    : endRequested_(std::move(endRequested)) {
    setHandler(SIGPIPE, SIG_IGN);
    setHandler(SIGXFSZ, SIG_IGN);
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    readEnd_ = posix::FileDescriptor(ends[0]);
    writeEnd_ = posix::FileDescriptor(ends[1]);
    arrived_ = std::make_unique<QSocketNotifier>(readEnd_.get(), QSocketNotifier::Read);
    QObject::connect(arrived_.get(), &QSocketNotifier::activated, [this] {
        drain();
        endRequested_();
    });
    signalPipe = writeEnd_.get();
    for (const int signal : endingSignals) {
        setHandler(signal, passOn);
    }
}

UnixSignals::~UnixSignals() {
    for (const int signal : endingSignals) {
        setHandler(signal, SIG_DFL);
    }
    signalPipe = -1;
}

void UnixSignals::drain() const {
    std::array<char, 64> bytes{};
    while (read(readEnd_.get(), bytes.data(), bytes.size()) > 0) {
    }
}

} // namespace corvane::linux
