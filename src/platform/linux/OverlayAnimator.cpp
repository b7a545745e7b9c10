#include "platform/linux/OverlayAnimator.h"

#include "platform/linux/OverlayPlayback.h"

#include <algorithm>

namespace corvane::x11 {

OverlayAnimator::OverlayAnimator() {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(
        std::chrono::floor<std::chrono::milliseconds>(OverlayAnimation::pictureInterval));
    QObject::connect(&timer_, &QTimer::timeout, [this] { advance(); });
}

void OverlayAnimator::add(OverlayPlayback &playback) {
    running_.push_back(&playback);
    if (!timer_.isActive()) {
        timer_.start();
    }
}

void OverlayAnimator::remove(OverlayPlayback &playback) {
    std::erase(running_, &playback);
    std::erase(over_, &playback);
}

void OverlayAnimator::advance() {
    const Time now = std::chrono::steady_clock::now();
    const auto firstOver = std::ranges::stable_partition(
        running_, [now](OverlayPlayback *playback) { return playback->showAt(now); });
    over_.insert(over_.end(), firstOver.begin(), firstOver.end());
    running_.erase(firstOver.begin(), firstOver.end());
    finish();
    if (running_.empty()) {
        timer_.stop();
    }
}

/// What is told may destroy any playback or start another.
void OverlayAnimator::finish() {
    while (!over_.empty()) {
        OverlayPlayback &playback = *over_.front();
        over_.erase(over_.begin());
        playback.complete();
    }
}

} // namespace corvane::x11
