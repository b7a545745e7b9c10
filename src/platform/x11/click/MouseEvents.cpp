#include "platform/x11/click/MouseEvents.h"

#include "platform/x11/click/MouseSession.h"

namespace corvane::x11 {

std::unique_ptr<platform::MouseSession> LinuxMouseEvents::openSession() {
    return std::make_unique<LinuxMouseSession>();
}

} // namespace corvane::x11
