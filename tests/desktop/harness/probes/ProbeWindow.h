#pragma once

#include "DisplayConnection.h"

namespace corvane::desktop {

/// A small window that shows whether the window manager is at work. A window manager announces
/// itself before it listens, and forgets windows that come up in between.
class ProbeWindow {
  public:
    /// The connection outlives it.
    explicit ProbeWindow(const DisplayConnection &connection);
    ProbeWindow(const ProbeWindow &) = delete;
    ProbeWindow &operator=(const ProbeWindow &) = delete;
    ~ProbeWindow() { close(); }

    void close();

    /// Maps the window, again if the map request was lost; whether the window manager took care of
    /// it within a moment.
    bool isManaged() const;

    /// Whether the window manager has it on its list.
    bool isListed() const;

  private:
    const DisplayConnection &connection_;
    xcb_window_t id_;
    bool isOpen_ = true;
};

/// Shows whether a compositor is at work: a transparent window over a white one. A compositor
/// announces itself before it draws the first picture.
class TransparencyProbe {
  public:
    /// The connection outlives it.
    explicit TransparencyProbe(const DisplayConnection &connection);
    TransparencyProbe(const TransparencyProbe &) = delete;
    TransparencyProbe &operator=(const TransparencyProbe &) = delete;
    ~TransparencyProbe();

    /// Whether the white window shows through the transparent one.
    bool isTransparent() const;

  private:
    const DisplayConnection &connection_;
    xcb_window_t white_;
    xcb_colormap_t colours_;
    xcb_window_t transparent_;
};

} // namespace corvane::desktop
