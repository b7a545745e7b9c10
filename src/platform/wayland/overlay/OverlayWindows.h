#pragma once

#include "platform/OverlayWindows.h"
#include "platform/drawing/FrameImages.h"
#include "platform/drawing/OverlayAnimator.h"
#include "platform/drawing/OverlayPainter.h"
#include "platform/wayland/connection/SharedImage.h"
#include "platform/wayland/overlay/OverlayInput.h"
#include "platform/wayland/screens/Screens.h"

namespace corvane::wayland {

/// Overlays of the layer shell.
class OverlayWindows : public platform::OverlayWindows {
  public:
    /// The connection offers the layer shell. Everything given outlives the windows, which outlive
    /// every overlay.
    OverlayWindows(Connection &connection, const Screens &screens, drawing::SymbolImages &symbols);

    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window,
                                                    platform::OverlayEvents events) override;

  private:
    Connection &connection_;
    const Screens &screens_;
    const drawing::OverlayPainter painter_;
    OverlayInput input_;
    drawing::OverlayAnimator animator_;
    drawing::FrameImages<SharedImage> frames_;
};

} // namespace corvane::wayland
