#include "platform/wayland/overlay/OverlayWindows.h"

#include "platform/wayland/overlay/Overlay.h"

#include <utility>

namespace corvane::wayland {

OverlayWindows::OverlayWindows(Connection &connection, const Screens &screens,
                               drawing::SymbolImages &symbols)
    : connection_(connection),
      screens_(screens),
      painter_(symbols),
      input_(connection),
      animator_(connection, painter_) {}

std::unique_ptr<platform::NativeOverlay> OverlayWindows::create(const BorderlessWindow &window,
                                                                platform::OverlayEvents events) {
    return std::make_unique<Overlay>(
        OverlayTools{connection_, screens_, painter_, input_, animator_}, window,
        std::move(events));
}

} // namespace corvane::wayland
