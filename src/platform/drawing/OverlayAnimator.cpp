#include "platform/drawing/OverlayAnimator.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace corvane::drawing {

OverlayAnimator::OverlayAnimator(FramePacing pacing)
    : pacing_(std::move(pacing)),
      timer_([this] { advance(clock_.now()); }) {}

void OverlayAnimator::add(OverlayPlayback &playback) {
    if (running_.empty()) {
        lastAdvance_ = clock_.now();
    }
    running_.push_back(&playback);
    setTimer();
}

void OverlayAnimator::remove(OverlayPlayback &playback) {
    std::erase(running_, &playback);
    std::erase(over_, &playback);
}

void OverlayAnimator::advanceWhileAwake() {
    constexpr std::chrono::milliseconds earliest(12);
    if (running_.empty()) {
        return;
    }
    const platform::Instant now = clock_.now();
    if (now - lastAdvance_ >= earliest && pacing_.deferred(now) == now) {
        advance(now);
    }
}

void OverlayAnimator::advance(platform::Instant now) {
    pacing_.beforeFrames();
    lastAdvance_ = now;
    const auto firstOver = std::ranges::stable_partition(
        running_, [now](OverlayPlayback *playback) { return playback->advanceTo(now); });
    over_.insert(over_.end(), firstOver.begin(), firstOver.end());
    running_.erase(firstOver.begin(), firstOver.end());
    callCompletions();
    setTimer();
}

/// A completion may destroy any playback or start another.
void OverlayAnimator::callCompletions() {
    while (!over_.empty()) {
        OverlayPlayback &playback = *over_.front();
        over_.erase(over_.begin());
        playback.complete();
    }
}

void OverlayAnimator::setTimer() {
    if (running_.empty()) {
        timer_.clear();
    } else {
        timer_.set(pacing_.deferred(lastAdvance_ + FrameTimes::interval));
    }
}

OverlayPlayback::OverlayPlayback(OverlayAnimator &animator, const Animation &animation, Show show,
                                 std::function<void()> completion)
    : animator_(animator),
      animation_(animation),
      times_(animation.duration),
      show_(std::move(show)),
      completion_(std::move(completion)),
      start_(animator.clock_.now()) {
    animator_.add(*this);
    show_(index_);
}

OverlayPlayback::~OverlayPlayback() { animator_.remove(*this); }

void OverlayPlayback::changeTo(Show show) {
    show_ = std::move(show);
    show_(index_);
}

bool OverlayPlayback::advanceTo(platform::Instant now) {
    const std::size_t index = times_.indexAt(now - start_);
    if (std::exchange(index_, index) != index) {
        show_(index);
    }
    return !times_.isOverAt(now - start_);
}

void OverlayPlayback::complete() {
    if (const auto completion = std::exchange(completion_, {})) {
        completion();
    }
}

} // namespace corvane::drawing
