#pragma once

#include "platform/CommandEndpoint.h"
#include "platform/posix/FileDescriptor.h"
#include "support/Failure.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <thread>

#include <sys/types.h>
#include <unistd.h>

namespace corvane::platform {
class MainQueue;
}

namespace corvane::posix {

/// Takes commands at a socket in the file system. One thread of its own reads and writes, so that a
/// slow or broken sender never keeps the main thread; requests are obeyed on the main thread. Where
/// the file at its path goes, as sweepers of old files make it, the socket makes another one. Made
/// and destroyed on the main thread.
class CommandSocket {
  public:
    struct Options {
        /// The user who may send.
        uid_t user = geteuid();
        /// How long a sender may take over its request.
        std::chrono::milliseconds patience{5000};
        /// The longest request that is read, in bytes.
        std::size_t longestRequest = std::size_t{64} * 1024;
        /// Senders beyond this number wait.
        std::size_t mostConnections = 64;
        /// How often the socket looks whether it is still found at its path.
        std::chrono::milliseconds pathCheckPeriod{60'000};
    };

    /// Listens at the path, in a folder that others cannot enter. The main queue outlives it.
    static Outcome<std::unique_ptr<CommandSocket>> open(const std::filesystem::path &path,
                                                        platform::MainQueue &mainQueue,
                                                        platform::CommandEndpoint::Obey obey,
                                                        const Options &options);

    /// Closes it, if that has not been done.
    ~CommandSocket();

    /// Whoever comes from now on finds nobody running. Answers given before `sayGoodbye` returns
    /// are still sent. Once at most.
    void close(const std::function<void()> &sayGoodbye);

    CommandSocket(const CommandSocket &) = delete;
    CommandSocket &operator=(const CommandSocket &) = delete;

  private:
    class Senders;

    explicit CommandSocket(std::shared_ptr<Senders> senders);

    const std::shared_ptr<Senders> senders_;
    std::thread thread_;
};

} // namespace corvane::posix
