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

    /// Where two drawings in a window of that size may look different.
    static QRegion difference(const Drawing &one, const Drawing &other, QSize size);

  private:
    void paint(QPainter &painter, const OverlayScene &scene, const Shape &shape) const;
    void paint(QPainter &painter, const OverlayScene &scene, const SymbolDrawing &symbol) const;

    SymbolImages &symbols_;
};

} // namespace corvane::drawing
