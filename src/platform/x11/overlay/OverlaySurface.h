#pragma once

#include "platform/x11/overlay/OverlayImage.h"
#include "platform/x11/overlay/OverlayVisual.h"
#include "presentation/BorderlessWindow.h"

#include <QRect>
#include <QRegion>
#include <QRgb>

#include <cstdint>
#include <optional>

namespace corvane::x11 {

/// Names for what compositing managers are told about overlays, which they would else put a shadow
/// beneath or fade in. A picture that is dragged is the one type that all of them leave alone.
struct OverlayHints {
    explicit OverlayHints(const XcbConnection &connection);

    xcb_atom_t type;
    xcb_atom_t dragged;
    xcb_atom_t shadow;
};

/// A window of the X server that no window manager touches: above other programs' windows, on every
/// workspace and in no list of windows.
class OverlaySurface {
  public:
    struct Kind {
        bool ignoresMouseEvents = true;
        Cursor cursor = Cursor::arrow;

        bool operator==(const Kind &) const = default;
    };

    /// Off screen and empty. The visual outlives the surface.
    OverlaySurface(const OverlayVisual &visual, const OverlayHints &hints, const Kind &kind);
    ~OverlaySurface();

    OverlaySurface(const OverlaySurface &) = delete;
    OverlaySurface &operator=(const OverlaySurface &) = delete;

    xcb_window_t window() const { return window_; }
    const Kind &kind() const { return kind_; }

    /// In the root window's pixels.
    void place(const QRect &frame);
    void map();
    void unmap();

    /// Shows a picture.
    void show(const OverlayImage &picture);
    /// Shows a picture that was shown before where it has changed.
    void show(const OverlayImage &picture, const QRegion &changed);

  private:
    void create();
    void describe(const OverlayHints &hints) const;
    void passMouseEventsThrough() const;
    void setBackground(const OverlayImage &picture);
    void limitTo(const OverlayImage &picture);

    const OverlayVisual &visual_;
    const Kind kind_;
    const xcb_window_t window_;
    /// The background where it is one colour.
    std::optional<QRgb> colour_;
    bool isLimited_ = false;
};

} // namespace corvane::x11
