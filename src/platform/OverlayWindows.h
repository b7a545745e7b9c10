#pragma once

#include "presentation/Animation.h"
#include "presentation/BorderlessWindow.h"
#include "presentation/Drawing.h"

#include <functional>
#include <memory>

namespace corvane::platform {

enum class Key { escape, other };

/// What the user does on an overlay; points in screen space. Empty functions are not called.
struct OverlayEvents {
    std::function<void(Point)> mouseDown{};
    std::function<void(Point)> mouseDragged{};
    std::function<void(Point)> mouseUp{};
    std::function<void(Key)> keyDown{};
};

/// A borderless window. Main thread. Created off screen; destroying it takes it off the screen,
/// also from within one of its own events.
class NativeOverlay {
  public:
    virtual ~NativeOverlay() = default;

    /// Shows it above the windows of its level without taking the keyboard.
    virtual void orderFront() = 0;
    /// Shows it and gives it the keyboard.
    virtual void makeKeyAndOrderFront() = 0;
    virtual void orderOut() = 0;

    /// Where it is; screen space as it is now, which changes with the primary screen.
    virtual Rectangle frame() const = 0;

    /// Moves it, redrawing at once; screen space.
    virtual void setFrame(const Rectangle &frame) = 0;

    /// Replaces what it shows; the window's own coordinates, origin bottom left.
    virtual void setDrawing(const Drawing &drawing) = 0;

    /// Plays an animation over the drawing, then calls `completion` once, later, on the main
    /// thread. A window destroyed meanwhile calls nothing.
    virtual void play(const Animation &animation, std::function<void()> completion) = 0;
};

/// Makes overlays. Main thread.
class OverlayWindows {
  public:
    virtual ~OverlayWindows() = default;

    /// Never null; where no window can be made, the overlay shows nothing and reports nothing.
    virtual std::unique_ptr<NativeOverlay> create(const BorderlessWindow &window,
                                                  OverlayEvents events) = 0;
};

} // namespace corvane::platform
