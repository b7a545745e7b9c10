#pragma once

#include "overlay/SelectionRectLayer.h"
#include "platform/OverlayWindows.h"
#include "support/Geometry.h"

#include <functional>
#include <memory>

namespace corvane {

/// The input of an overlay, for the zone picker; points in screen space.
struct OverlayCallbacks {
    std::function<void(Point)> onMouseDown;
    std::function<void()> onCancel;
    std::function<void(Point)> onDrag{};
    std::function<void(Point)> onMouseUp{};
};

/// Dims one screen while a zone is picked and shows the rectangle being dragged. Main thread.
class OverlayWindow {
  public:
    /// `contentRectangle` is the screen's frame in screen space.
    OverlayWindow(platform::OverlayWindows &windows, const Rectangle &contentRectangle,
                  OverlayCallbacks callbacks);

    void makeKeyAndOrderFront();
    void orderOut();

    /// Shows the rectangle, given in screen space, as far as it lies on this screen.
    void showSelection(const Rectangle &selection);
    void clearSelection();

  private:
    SelectionRectLayer selectionLayer_;
    std::unique_ptr<platform::NativeOverlay> native_;
};

} // namespace corvane
