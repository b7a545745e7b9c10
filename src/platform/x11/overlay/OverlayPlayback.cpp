#include "platform/x11/overlay/OverlayPlayback.h"

#include <utility>

namespace corvane::x11 {

OverlayPlayback::OverlayPlayback(OverlayAnimator &animator, OverlaySurface &surface,
                                 std::shared_ptr<OverlayAnimation> animation,
                                 std::function<void()> completion)
    : animator_(animator),
      surface_(surface),
      animation_(std::move(animation)),
      completion_(std::move(completion)),
      start_(animator.now()) {
    animator_.add(*this);
    show(0);
}

OverlayPlayback::~OverlayPlayback() { animator_.remove(*this); }

void OverlayPlayback::changeTo(std::shared_ptr<OverlayAnimation> animation) {
    animation_ = std::move(animation);
    show(index_);
}

bool OverlayPlayback::showAt(platform::Instant now) {
    const std::size_t index = animation_->frames().indexAt(now - start_);
    if (index != index_) {
        show(index);
    }
    return !animation_->frames().isOverAt(now - start_);
}

void OverlayPlayback::show(std::size_t index) {
    index_ = index;
    surface_.show(animation_->image(index));
}

void OverlayPlayback::complete() {
    if (const auto completion = std::exchange(completion_, {})) {
        completion();
    }
}

} // namespace corvane::x11
