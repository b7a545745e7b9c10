#include "app/Ripples.h"

#include "overlay/RippleWindow.h"

namespace corvane {

Ripples::Ripples(platform::OverlayWindows &overlayWindows) : overlayWindows_(overlayWindows) {}

Ripples::~Ripples() = default;

void Ripples::show(Point point, std::optional<double> primaryScreenHeight) {
    const auto ripple = std::make_shared<RippleWindow>(overlayWindows_, point, primaryScreenHeight);
    windows_.insert(ripple);
    ripple->orderFront();
    ripple->animate(weakly_([held = std::weak_ptr(ripple)](Ripples &self) {
        if (const auto finished = held.lock()) {
            finished->orderOut();
            self.windows_.erase(finished);
        }
    }));
}

} // namespace corvane
