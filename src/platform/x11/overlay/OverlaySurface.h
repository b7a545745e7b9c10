#pragma once

#include "platform/x11/overlay/OverlayImage.h"
#include "platform/x11/overlay/OverlayStack.h"
#include "presentation/BorderlessWindow.h"

#include <QRect>
#include <QRegion>
#include <QRgb>
#include <QTimer>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// A window of the X server that no window manager manages: above other programs' windows, on every
/// workspace and in no list of windows. Frames are in the root window's pixels. Main thread.
class OverlaySurface {
  public:
    struct Kind {
        bool ignoresMouseEvents = true;
        Cursor cursor = Cursor::arrow;
        /// Whether a new window takes the place of the old one with each change on the screen,
        /// where the compositor would let a changed one take the mouse.
        bool isReplaced = false;

        bool operator==(const Kind &) const = default;
    };

    /// Off screen and transparent. The visual and the stack outlive the surface.
    OverlaySurface(const OverlayVisual &visual, OverlayStack &stack, const Kind &kind);
    ~OverlaySurface();

    OverlaySurface(const OverlaySurface &) = delete;
    OverlaySurface &operator=(const OverlaySurface &) = delete;

    xcb_window_t window() const { return window_; }
    const Kind &kind() const { return kind_; }

    /// Puts it on the screen, above the overlays of its level.
    void show(const QRect &frame, int level, bool staysOnTop);
    /// The same for one that is on the screen.
    void raise(int level, bool staysOnTop);
    void hide();
    void place(const QRect &frame);

    /// Takes it off the screen for a moment; it keeps its place among the overlays.
    void unmap();
    void map();

    /// Shows an image.
    void paint(const OverlayImage &image);
    /// Shows an image that it shows already where that has changed.
    void paint(const OverlayImage &image, const QRegion &changed);

  private:
    void create();
    /// Puts a new window in the place of the one that is on the screen.
    void replace();
    void destroyFormer();
    void setProperties() const;
    void letMouseEventsThrough() const;
    void configure() const;
    void keepBackground(const OverlayImage &image);
    void setBackground() const;
    void setShape(const OverlayImage &image);

    const OverlayVisual &visual_;
    OverlayStack &stack_;
    const Kind kind_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    /// Stays beneath its successor until that is surely on the screen.
    xcb_window_t former_ = XCB_WINDOW_NONE;
    std::unique_ptr<QTimer> formerTimer_;
    bool isShown_ = false;
    QRect frame_;
    /// The background where it is an image.
    xcb_pixmap_t pixmap_ = XCB_PIXMAP_NONE;
    /// The background where it is one colour.
    std::optional<QRgb> colour_;
    bool hasShape_ = false;
};

/// Creates surfaces and keeps up to eight hidden ones for reuse: a compositing manager does much
/// more work for a new window than for one that is shown again. Main thread.
class OverlaySurfaces {
  public:
    /// Gives a surface back, which must be hidden.
    struct GiveBack {
        OverlaySurfaces *owner;
        void operator()(OverlaySurface *surface) const;
    };
    using Lease = std::unique_ptr<OverlaySurface, GiveBack>;

    /// The visual and the events outlive the surfaces, which outlive every lease.
    OverlaySurfaces(const OverlayVisual &visual, XcbEvents &events);

    Lease take(const OverlaySurface::Kind &kind);

  private:
    const OverlayVisual &visual_;
    OverlayStack stack_;
    std::vector<std::unique_ptr<OverlaySurface>> kept_;
};

} // namespace corvane::x11
