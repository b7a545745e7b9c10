#pragma once

#include "presentation/Colour.h"
#include "presentation/Drawing.h"
#include "support/Geometry.h"

#include <QImage>
#include <QRect>
#include <QSize>

namespace corvane::drawing {

/// Everything that an overlay shows.
struct OverlayScene {
    /// How the overlay is combined with the screen beneath.
    enum class Blending {
        /// The desktop's compositor blends them.
        translucent,
        /// The overlay is opaque and paints an image of the screen first.
        backdrop,
        /// Pixels are opaque or left out of the window; faint colours are left out.
        cutOut
    };

    /// Pixels.
    QSize size{};
    /// What the window shows of it, in pixels from the top left corner: all, unless it is larger
    /// than the desktop.
    QRect part{};
    Blending blending = Blending::translucent;
    Colour background{};
    /// The screen beneath that part; null unless blended that way.
    QImage backdrop{};
    /// In the window's coordinates, origin bottom left.
    Drawing drawing{};

    bool hasBackground() const {
        return background.name != ColourName::clear && background.alpha > 0;
    }
    bool isEmpty() const { return drawing.empty() && !hasBackground(); }

    /// Whether they differ in their drawings at most.
    bool differsInDrawingOnly(const OverlayScene &other) const {
        return size == other.size && part == other.part && blending == other.blending &&
               background == other.background && backdrop.cacheKey() == other.backdrop.cacheKey();
    }

    bool operator==(const OverlayScene &other) const {
        return differsInDrawingOnly(other) && drawing == other.drawing;
    }
};

/// The nearest pixels, at least one: window systems have no windows without an area.
QRect pixelsOf(const Rectangle &rectangle);
Rectangle rectangleOf(const QRect &pixels);

/// The part of a frame that an overlay shows, from the frame's top left corner: all of it, unless
/// it is larger than the desktop.
QRect shownPart(const QRect &frame, const QRect &desktop);

} // namespace corvane::drawing
