#include "platform/linux/LinuxMouseEvents.h"

#include "platform/linux/LinuxMouseSession.h"

namespace corvane::x11 {

std::unique_ptr<platform::MouseSession> LinuxMouseEvents::openSession() {
    return std::make_unique<LinuxMouseSession>(XcbConnection::open().value_or(nullptr));
}

} // namespace corvane::x11
