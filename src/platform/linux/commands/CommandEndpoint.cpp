#include "platform/linux/commands/CommandEndpoint.h"

#include "platform/MainQueue.h"
#include "platform/linux/commands/BusCommands.h"
#include "platform/linux/commands/CommandAddress.h"
#include "support/Log.h"

#include <cstdio>
#include <utility>

namespace corvane::linux {

CommandEndpoint::CommandEndpoint(platform::MainQueue &mainQueue, CommandRequest first)
    : mainQueue_(mainQueue),
      first_(std::move(first)) {}

CommandEndpoint::~CommandEndpoint() = default;

void CommandEndpoint::listen(Obey obey) {
    if (!first_.empty()) {
        mainQueue_.post([obey, request = first_] {
            obey(request, [](const CommandAnswer &answer) {
                if (!answer.error.empty()) {
                    std::fputs(("corvane: " + answer.error + "\n").c_str(), stderr);
                }
            });
        });
    }
    const auto address = CommandAddress::ofDisplay();
    auto socket = posix::CommandSocket::open(address.socket, mainQueue_, obey, {});
    if (socket) {
        socket_ = std::move(*socket);
    } else {
        log("Cannot take commands at " + socket.error().description);
    }
    bus_ = std::make_unique<BusCommands>(std::vector{address.busName, commandBusName()},
                                         std::move(obey));
}

void CommandEndpoint::close(const std::function<void()> &sayGoodbye) {
    if (bus_) {
        bus_->releaseNames();
    }
    if (socket_) {
        socket_->close(sayGoodbye);
    } else {
        sayGoodbye();
    }
    bus_.reset();
    socket_.reset();
}

} // namespace corvane::linux
