#include "platform/linux/LinuxMouseEvents.h"

#include "platform/linux/LinuxMouseSession.h"

namespace corvane::x11 {

std::unique_ptr<platform::MouseSession> LinuxMouseEvents::openSession() {
    return std::make_unique<LinuxMouseSession>();
}

} // namespace corvane::x11
