#pragma once

#include "platform/OverlayWindows.h"

namespace corvane::macos {

/// Borderless windows of the windowing system.
class OverlayWindows : public platform::OverlayWindows {
  public:
    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window,
                                                    platform::OverlayEvents events) override;
};

} // namespace corvane::macos
