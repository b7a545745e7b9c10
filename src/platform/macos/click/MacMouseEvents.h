#pragma once

#include "platform/MouseEvents.h"

namespace corvane::macos {

/// Core Graphics events at the hardware event tap.
class MacMouseEvents : public platform::MouseEvents {
  public:
    std::unique_ptr<platform::MouseSession> openSession() override;
};

} // namespace corvane::macos
