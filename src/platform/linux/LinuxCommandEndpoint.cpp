#include "platform/linux/LinuxCommandEndpoint.h"

#include "platform/linux/BusCommands.h"
#include "platform/linux/CommandAddress.h"
#include "support/Log.h"

#include <utility>

namespace corvane::x11 {

LinuxCommandEndpoint::LinuxCommandEndpoint(platform::MainQueue &mainQueue)
    : mainQueue_(mainQueue) {}

LinuxCommandEndpoint::~LinuxCommandEndpoint() = default;

void LinuxCommandEndpoint::listen(Obey obey) {
    const auto address = CommandAddress::ofDisplay();
    auto socket = posix::CommandSocket::open(address.socket, mainQueue_, obey, {});
    if (socket) {
        socket_ = std::move(*socket);
    } else {
        log("Cannot take commands at " + socket.error().description);
    }
    if (hasSessionBus()) {
        bus_ = std::make_unique<BusCommands>(std::vector{address.busName, commandBusName()},
                                             std::move(obey));
    }
}

} // namespace corvane::x11
