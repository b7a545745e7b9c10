#pragma once

#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/screens/CompositorMonitor.h"

#include <QImage>
#include <QRect>

#include <chrono>
#include <vector>

namespace corvane::x11 {

class Overlay;
class OverlayVisual;

/// The screen beneath the overlays: seen through them while a compositing manager runs, else read
/// as an image. Main thread.
class ScreenBeneath {
  public:
    /// Both outlive this.
    ScreenBeneath(XcbEvents &events, const OverlayVisual &visual);

    /// Whether translucent pixels of an overlay show it.
    bool showsThrough() const;

    /// An area of it, in the root window's pixels; black where it cannot be read. Waits 0.1 s for
    /// other programs to redraw what windows of this program have just uncovered, unless another
    /// area was read just before.
    QImage image(const QRect &area);

    /// When a compositing manager starts or ends, first every overlay that needs the image goes off
    /// the screen, then each shows itself anew.
    void add(Overlay &overlay) { overlays_.push_back(&overlay); }
    void remove(Overlay &overlay) { std::erase(overlays_, &overlay); }

  private:
    void compositorChanged();

    const XcbConnection &connection_;
    const OverlayVisual &visual_;
    std::vector<Overlay *> overlays_;
    std::chrono::steady_clock::time_point lastRead_;
    const CompositorMonitor compositor_;
};

} // namespace corvane::x11
