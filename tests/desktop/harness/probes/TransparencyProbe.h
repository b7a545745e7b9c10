#pragma once

#include "DisplayConnection.h"

namespace corvane::desktop {

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
