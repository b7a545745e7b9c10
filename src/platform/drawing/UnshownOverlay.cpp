#include "platform/drawing/UnshownOverlay.h"

#include <utility>

namespace corvane::drawing {

UnshownOverlay::UnshownOverlay(const Rectangle &frame) : frame_(frame) {
    end_.setSingleShot(true);
    QObject::connect(&end_, &QTimer::timeout, [this] {
        if (const auto completion = std::exchange(completion_, {})) {
            completion();
        }
    });
}

void UnshownOverlay::play(const Animation &animation, std::function<void()> completion) {
    completion_ = std::move(completion);
    end_.start(animation.duration);
}

} // namespace corvane::drawing
