#pragma once

#include "presentation/Colour.h"
#include "presentation/Drawing.h"

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

    bool operator==(const OverlayScene &other) const {
        return size == other.size && part == other.part && blending == other.blending &&
               background == other.background && backdrop.cacheKey() == other.backdrop.cacheKey() &&
               drawing == other.drawing;
    }
};

} // namespace corvane::drawing
