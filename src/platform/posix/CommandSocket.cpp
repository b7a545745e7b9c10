#include "platform/posix/CommandSocket.h"

#include "platform/posix/ClientConnections.h"
#include "platform/posix/ListeningSocket.h"

#include <utility>

namespace corvane::posix {

Outcome<std::unique_ptr<CommandSocket>>
CommandSocket::open(const std::filesystem::path &path, platform::MainQueue &mainQueue,
                    platform::CommandEndpoint::RequestHandler handler, const Options &options) {
    auto listener = ListeningSocket::open(path);
    if (!listener) {
        return std::unexpected(listener.error());
    }
    auto connections = std::make_shared<ClientConnections>(std::move(*listener), mainQueue,
                                                           std::move(handler), options);
    return std::unique_ptr<CommandSocket>(
        new CommandSocket(std::move(connections))); // NOLINT(cppcoreguidelines-owning-memory)
}

CommandSocket::CommandSocket(std::shared_ptr<ClientConnections> connections)
    : connections_(std::move(connections)),
      thread_([connections = connections_.get()] { connections->serve(); }) {}

CommandSocket::~CommandSocket() {
    if (thread_.joinable()) {
        close([] {});
    }
}

void CommandSocket::close(const std::function<void()> &announceEnd) {
    connections_->hide();
    announceEnd();
    connections_->end();
    thread_.join();
}

} // namespace corvane::posix
