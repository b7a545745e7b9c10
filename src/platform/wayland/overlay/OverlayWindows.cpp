#include "platform/wayland/overlay/OverlayWindows.h"

#include "platform/wayland/overlay/Overlay.h"

#include <QPainter>

#include <utility>

namespace corvane::wayland {

OverlayWindows::OverlayWindows(Connection &connection, const Screens &screens,
                               drawing::SymbolImages &symbols)
    : connection_(connection),
      screens_(screens),
      painter_(symbols),
      input_(connection),
      frames_(painter_, [&connection](const drawing::AnimationFrames &frames, std::size_t index) {
          auto image =
              std::make_shared<SharedImage>(connection.sharedMemory(), frames.scene().part.size());
          QPainter(&image->image()).drawImage(QPoint(), frames.paint(index));
          return image;
      }) {}

std::unique_ptr<platform::NativeOverlay> OverlayWindows::create(const BorderlessWindow &window,
                                                                platform::OverlayEvents events) {
    return std::make_unique<Overlay>(
        OverlayTools{connection_, screens_, painter_, input_, animator_, frames_}, window,
        std::move(events));
}

} // namespace corvane::wayland
