#pragma once

#include "platform/drawing/OverlayScene.h"
#include "platform/drawing/SymbolImages.h"

#include <QImage>
#include <QRect>
#include <QRegion>

class QPainter;

namespace corvane::drawing {

/// Paints the scenes of overlays. Main thread.
class OverlayPainter {
  public:
    /// The symbols outlive the painter.
    explicit OverlayPainter(SymbolImages &symbols) : symbols_(symbols) {}

    /// A piece of the part that is shown, in pixels from the scene's top left corner; premultiplied
    /// 32-bit.
    QImage paint(const OverlayScene &scene, const QRect &piece) const;

    /// Where two scenes that differ in their drawings only may look different, in pixels from the
    /// top left corner of the part that is shown.
    static QRegion difference(const OverlayScene &one, const OverlayScene &other);

  private:
    void paint(QPainter &painter, const OverlayScene &scene, const Shape &shape) const;
    void paint(QPainter &painter, const OverlayScene &scene, const SymbolDrawing &symbol) const;

    SymbolImages &symbols_;
};

} // namespace corvane::drawing
