#pragma once

#include "platform/MouseEvents.h"

namespace corvane::x11 {

/// The pointer of the X server, pressed through its test extension.
class MouseEvents : public platform::MouseEvents {
  public:
    std::unique_ptr<platform::MouseSession> openSession() override;
};

} // namespace corvane::x11
