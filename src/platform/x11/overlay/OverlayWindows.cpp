#include "platform/x11/overlay/OverlayWindows.h"

#include "platform/drawing/UnshownOverlay.h"
#include "platform/x11/overlay/Overlay.h"

#include <utility>

namespace corvane::x11 {

std::unique_ptr<platform::NativeOverlay> OverlayWindows::create(const BorderlessWindow &window,
                                                                platform::OverlayEvents events) {
    if (!stage_) {
        return std::make_unique<drawing::UnshownOverlay>(window.frame);
    }
    return std::make_unique<Overlay>(*stage_, window, std::move(events));
}

} // namespace corvane::x11
