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

/// Receives commands on a Unix socket. A thread of its own reads and writes, so that a slow or
/// broken client never blocks the main thread, on which requests are handled. When the file at its
/// path is removed, as programs that clear temporary folders do, the socket is made anew. Made and
/// destroyed on the main thread.
class CommandSocket {
  public:
    struct Options {
        /// Clients of other users are refused.
        uid_t user = geteuid();
        /// A client that has not sent its whole request by then is disconnected.
        std::chrono::milliseconds requestTimeout{5000};
        /// The longest request that is read, in bytes.
        std::size_t longestRequest = std::size_t{64} * 1024;
        /// Further clients wait until one of these has gone.
        std::size_t mostConnections = 64;
        /// How often the socket checks that it is still found at its path.
        std::chrono::milliseconds pathCheckPeriod{60'000};
    };

    /// Listens at the path, in a folder that others cannot enter. The main queue outlives it.
    static Outcome<std::unique_ptr<CommandSocket>>
    open(const std::filesystem::path &path, platform::MainQueue &mainQueue,
         platform::CommandEndpoint::RequestHandler handler, const Options &options);

    /// Closes it, if that has not been done.
    ~CommandSocket();

    /// Later clients find no program running. Answers given before `announceEnd` returns are still
    /// sent. Once at most.
    void close(const std::function<void()> &announceEnd);

    CommandSocket(const CommandSocket &) = delete;
    CommandSocket &operator=(const CommandSocket &) = delete;

  private:
    class ClientConnections;

    explicit CommandSocket(std::shared_ptr<ClientConnections> connections);

    const std::shared_ptr<ClientConnections> connections_;
    std::thread thread_;
};

} // namespace corvane::posix
