#import "platform/macos/app/CommandEndpoint.h"

#import "platform/macos/app/CommandFolder.h"
#import "platform/macos/app/MacAppDelegate.h"
#include "platform/posix/CommandClient.h"
#include "support/Log.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>

namespace corvane::macos {

namespace {

/// Replies come at once, whatever the program is doing.
constexpr std::chrono::seconds replyTimeout{15};

std::filesystem::path socketPath() { return commandFolder() / "commands.socket"; }

void handleUrl(const std::string &url, const platform::CommandEndpoint::RequestHandler &handler) {
    const auto request = commandInUrl(url);
    if (!request) {
        log("Cannot read the command " + url);
        return;
    }
    handler(*request, [url](const CommandReply &reply) {
        if (reply.result != CommandResult::done) {
            log("Refused " + url + ": " + reply.error);
        }
    });
}

} // namespace

CommandEndpoint::~CommandEndpoint() { MacAppDelegate.current.openUrl = nullptr; }

void CommandEndpoint::listen(RequestHandler handler) {
    auto socket = posix::CommandSocket::open(socketPath(), mainQueue_, handler, {});
    if (socket) {
        socket_ = std::move(*socket);
    } else {
        log("Cannot take commands at " + socket.error().description);
    }
    MacAppDelegate.current.openUrl = [handler = std::move(handler)](const std::string &url) {
        handleUrl(url, handler);
    };
}

void CommandEndpoint::close(const std::function<void()> &announceEnd) {
    MacAppDelegate.current.openUrl = nullptr;
    if (socket_) {
        socket_->close(announceEnd);
    } else {
        announceEnd();
    }
    socket_.reset();
}

std::optional<CommandReply> callRunning(const CommandRequest &request) {
    return posix::sendCommand(socketPath(), request, replyTimeout);
}

} // namespace corvane::macos
