#pragma once

#include "support/Geometry.h"
#include "support/WeakCallbacks.h"

#include <memory>
#include <optional>
#include <set>

namespace corvane {

namespace platform {
class OverlayWindows;
}
class RippleWindow;

/// The ripples on the screen, each until its animation ends. Main thread.
class Ripples {
  public:
    /// The overlay windows outlive the ripples.
    explicit Ripples(platform::OverlayWindows &overlayWindows);
    ~Ripples();

    /// At a point in global display space, on screens whose primary one is that high.
    void show(Point point, std::optional<double> primaryScreenHeight);

  private:
    platform::OverlayWindows &overlayWindows_;
    std::set<std::shared_ptr<RippleWindow>> windows_;
    const WeakCallbacks<Ripples> weakly_{*this};
};

} // namespace corvane
