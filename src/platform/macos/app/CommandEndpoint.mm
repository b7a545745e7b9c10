#import "platform/macos/app/CommandEndpoint.h"

#import "platform/macos/app/CommandFolder.h"
#import "platform/macos/app/MacAppDelegate.h"
#include "platform/posix/CommandSender.h"
#include "support/Log.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>

namespace corvane::macos {

namespace {

/// Answers come at once, whatever the program is doing.
constexpr std::chrono::seconds patience{15};

std::filesystem::path socketPath() { return commandFolder() / "commands.socket"; }

void obeyUrl(const std::string &url, const platform::CommandEndpoint::Obey &obey) {
    const auto request = commandInUrl(url);
    if (!request) {
        log("Cannot read the command " + url);
        return;
    }
    obey(*request, [url](const CommandAnswer &answer) {
        if (answer.result != CommandResult::done) {
            log("Refused " + url + ": " + answer.error);
        }
    });
}

} // namespace

CommandEndpoint::~CommandEndpoint() { MacAppDelegate.current.openUrl = nullptr; }

void CommandEndpoint::listen(Obey obey) {
    auto socket = posix::CommandSocket::open(socketPath(), mainQueue_, obey, {});
    if (socket) {
        socket_ = std::move(*socket);
    } else {
        log("Cannot take commands at " + socket.error().description);
    }
    MacAppDelegate.current.openUrl = [obey = std::move(obey)](const std::string &url) {
        obeyUrl(url, obey);
    };
}

void CommandEndpoint::close(const std::function<void()> &sayGoodbye) {
    MacAppDelegate.current.openUrl = nullptr;
    if (socket_) {
        socket_->close(sayGoodbye);
    } else {
        sayGoodbye();
    }
    socket_.reset();
}

std::optional<CommandAnswer> callRunning(const CommandRequest &request) {
    return posix::sendCommand(socketPath(), request, patience);
}

} // namespace corvane::macos
