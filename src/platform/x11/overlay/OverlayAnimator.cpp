#include "platform/x11/overlay/OverlayAnimator.h"

#include "platform/drawing/AnimationFrames.h"
#include "platform/x11/connection/RequestSender.h"
#include "platform/x11/overlay/OverlayPlayback.h"

#include <algorithm>
#include <chrono>

namespace corvane::x11 {

OverlayAnimator::OverlayAnimator(RequestSender &sender)
    : sender_(sender),
      timer_([this] { advance(clock_.now()); }) {
    sender_.beforeSending([this] { advanceWhileAwake(); });
}

OverlayAnimator::~OverlayAnimator() {
    sender_.beforeSending([] {});
}

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

/// A click, or a look at the window that is followed, has woken the program anyway: the pictures
/// that are due soon are shown now, and need not wake it again.
void OverlayAnimator::advanceWhileAwake() {
    constexpr std::chrono::milliseconds soonest(12);
    if (running_.empty()) {
        return;
    }
    const platform::Instant now = clock_.now();
    if (now - lastAdvance_ >= soonest && sender_.clearOfClick(now) == now) {
        advance(now);
    }
}

void OverlayAnimator::advance(platform::Instant now) {
    sender_.draws();
    lastAdvance_ = now;
    const auto firstOver = std::ranges::stable_partition(
        running_, [now](OverlayPlayback *playback) { return playback->showAt(now); });
    over_.insert(over_.end(), firstOver.begin(), firstOver.end());
    running_.erase(firstOver.begin(), firstOver.end());
    finish();
    setTimer();
}

/// What is told may destroy any playback or start another.
void OverlayAnimator::finish() {
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
        timer_.set(sender_.clearOfClick(lastAdvance_ + drawing::AnimationFrames::interval));
    }
}

} // namespace corvane::x11
