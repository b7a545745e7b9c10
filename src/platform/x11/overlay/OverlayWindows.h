#pragma once

#include "platform/OverlayWindows.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/screens/Screens.h"

#include <memory>

namespace corvane::x11 {

/// Makes overlays of bare windows of the X server, which cost a fiftieth of a toolkit's window.
class OverlayWindows : public platform::OverlayWindows {
  public:
    /// Everything given outlives the overlays, and this outlives every overlay it makes.
    OverlayWindows(XcbEvents &events, const Screens &screens, drawing::SymbolImages &symbols);
    /// The same for a compositor that needs a new window for each change (`losesInputShapes`), or
    /// does not.
    OverlayWindows(XcbEvents &events, const Screens &screens, drawing::SymbolImages &symbols,
                   bool losesInputShapes);
    ~OverlayWindows() override;

    OverlayWindows(const OverlayWindows &) = delete;
    OverlayWindows &operator=(const OverlayWindows &) = delete;

    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window,
                                                    platform::OverlayEvents events) override;

  private:
    struct Shared;

    XcbEvents &events_;
    const Screens &screens_;
    const bool losesInputShapes_;
    /// Null where the server cannot show overlays that let the mouse through.
    std::unique_ptr<Shared> shared_;
};

} // namespace corvane::x11
