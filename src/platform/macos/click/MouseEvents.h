#pragma once

#include "platform/MouseEvents.h"

namespace corvane::macos {

/// Core Graphics events at the hardware event tap.
class MouseEvents : public platform::MouseEvents {
  public:
    std::unique_ptr<platform::MouseSession> openSession() override;
};

} // namespace corvane::macos
