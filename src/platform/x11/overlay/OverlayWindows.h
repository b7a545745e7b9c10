#pragma once

#include "platform/OverlayWindows.h"
#include "platform/x11/overlay/OverlayStage.h"

#include <memory>

namespace corvane::x11 {

/// Makes overlays from windows of the X server, without a toolkit in between.
class OverlayWindows : public platform::OverlayWindows {
  public:
    /// Everything given outlives the overlays, and this outlives every overlay it makes.
    OverlayWindows(XcbEvents &events, const Screens &screens, drawing::SymbolImages &symbols)
        : stage_(OverlayStage::make(events, screens, symbols)) {}

    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window,
                                                    platform::OverlayEvents events) override;

  private:
    /// Null where the server cannot show overlays.
    std::unique_ptr<OverlayStage> stage_;
};

} // namespace corvane::x11
