#include "platform/x11/overlay/OverlaySurfaces.h"

#include <algorithm>
#include <utility>

namespace corvane::x11 {

std::unique_ptr<OverlaySurface> OverlaySurfaces::take(const OverlaySurface::Kind &kind) {
    const auto match =
        std::ranges::find_if(kept_, [&kind](const auto &kept) { return kept->kind() == kind; });
    if (match == kept_.end()) {
        return std::make_unique<OverlaySurface>(visual_, hints_, kind);
    }
    std::unique_ptr<OverlaySurface> surface = std::move(*match);
    kept_.erase(match);
    return surface;
}

void OverlaySurfaces::giveBack(std::unique_ptr<OverlaySurface> surface) {
    if (kept_.size() < mostKept) {
        kept_.push_back(std::move(surface));
    }
}

} // namespace corvane::x11
