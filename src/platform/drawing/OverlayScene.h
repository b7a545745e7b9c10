#pragma once

#include "presentation/Colour.h"
#include "presentation/Drawing.h"

#include <QImage>
#include <QRect>
#include <QSize>

namespace corvane::drawing {

/// Everything that makes up the picture of an overlay.
struct OverlayScene {
    /// How the picture meets the screen beneath.
    enum class Blending {
        /// The compositing manager blends them.
        translucent,
        /// The picture carries a copy of the screen and lies over it.
        backdrop,
        /// Only what is opaque enough is shown, in full colour; the rest of the window is left out.
        cutOut
    };

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

    bool operator==(const OverlayScene &other) const {
        return size == other.size && part == other.part && blending == other.blending &&
               background == other.background && backdrop.cacheKey() == other.backdrop.cacheKey() &&
               drawing == other.drawing;
    }
};

} // namespace corvane::drawing
