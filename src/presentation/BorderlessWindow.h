#pragma once

#include "presentation/Colour.h"
#include "support/Geometry.h"

namespace corvane {

enum class Cursor { arrow, crosshair };

/// Window levels of the specified system: higher lies above lower.
namespace window_level {
inline constexpr int status = 25;
inline constexpr int screenSaver = 1000;
} // namespace window_level

/// A transient window without frame or title bar. It never has a shadow and is never opaque.
struct BorderlessWindow {
    /// Screen space.
    Rectangle frame;
    int level = window_level::status;
    Colour background{ColourName::clear};
    /// Every mouse event goes to what lies beneath.
    bool ignoresMouseEvents = true;
    bool acceptsMouseMovedEvents = false;
    /// May take the keyboard and be the main window.
    bool canBecomeKey = false;
    /// Shown on every workspace.
    bool joinsAllSpaces = true;
    /// Shown above full-screen applications.
    bool fullScreenAuxiliary = true;
    Cursor cursor = Cursor::arrow;

    bool operator==(const BorderlessWindow &) const = default;
};

} // namespace corvane
