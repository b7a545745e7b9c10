#include "platform/x11/click/MouseEvents.h"

#include "platform/x11/click/MouseSession.h"

namespace corvane::x11 {

std::unique_ptr<platform::MouseSession> MouseEvents::openSession() {
    return std::make_unique<MouseSession>(connection_);
}

} // namespace corvane::x11
