#pragma once

#include "platform/x11/overlay/OverlaySurface.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace corvane::x11 {

/// Hands out surfaces, those given back first: a compositing manager does much more work for a new
/// window than for one that comes back. Main thread.
class OverlaySurfaces {
  public:
    /// The visual outlives the surfaces.
    explicit OverlaySurfaces(const OverlayVisual &visual)
        : visual_(visual),
          hints_(visual.connection()) {}

    std::unique_ptr<OverlaySurface> take(const OverlaySurface::Kind &kind);

    /// Keeps a surface for later; it is off the screen.
    void giveBack(std::unique_ptr<OverlaySurface> surface);

  private:
    static constexpr std::size_t mostKept = 8;

    const OverlayVisual &visual_;
    const OverlayHints hints_;
    std::vector<std::unique_ptr<OverlaySurface>> kept_;
};

} // namespace corvane::x11
