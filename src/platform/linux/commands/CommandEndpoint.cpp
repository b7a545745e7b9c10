#include "platform/linux/commands/CommandEndpoint.h"

#include "platform/MainQueue.h"
#include "platform/linux/commands/CommandSockets.h"
#include "platform/posix/CommandClient.h"
#include "support/Log.h"

#include <chrono>
#include <cstdio>
#include <utility>

namespace corvane::linux {

CommandEndpoint::CommandEndpoint(platform::MainQueue &mainQueue, CommandRequest first)
    : mainQueue_(mainQueue),
      first_(std::move(first)) {}

void CommandEndpoint::listen(RequestHandler handler) {
    if (!first_.empty()) {
        mainQueue_.post([handler, request = first_] {
            handler(request, [](const CommandReply &reply) {
                if (!reply.error.empty()) {
                    std::fputs(("corvane: " + reply.error + "\n").c_str(), stderr);
                }
            });
        });
    }
    auto socket = posix::CommandSocket::open(commandSocket(), mainQueue_, std::move(handler), {});
    if (socket) {
        socket_ = std::move(*socket);
    } else {
        log("Cannot take commands at " + socket.error().description);
    }
}

void CommandEndpoint::close(const std::function<void()> &announceEnd) {
    if (socket_) {
        socket_->close(announceEnd);
    } else {
        announceEnd();
    }
    socket_.reset();
}

std::optional<CommandReply> callRunning(const CommandRequest &request) {
    // The program replies at once, also where a command opens a question on the screen.
    constexpr std::chrono::milliseconds timeout{15000};
    for (const auto &socket : commandSockets()) {
        if (auto reply = posix::sendCommand(socket, request, timeout)) {
            return reply;
        }
    }
    return std::nullopt;
}

} // namespace corvane::linux
