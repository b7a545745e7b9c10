#include "platform/x11/overlay/OverlayAnimator.h"

#include "platform/x11/connection/RequestSender.h"

#include <algorithm>
#include <chrono>
#include <utility>

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

/// Shows frames that are due within 5 ms while a click or an anchor pass keeps the program awake,
/// which saves a wake-up of their own.
void OverlayAnimator::advanceWhileAwake() {
    constexpr std::chrono::milliseconds earliest(12);
    if (running_.empty()) {
        return;
    }
    const platform::Instant now = clock_.now();
    if (now - lastAdvance_ >= earliest && sender_.deferPastClick(now) == now) {
        advance(now);
    }
}

void OverlayAnimator::advance(platform::Instant now) {
    sender_.markDrawing();
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
        timer_.set(sender_.deferPastClick(lastAdvance_ + drawing::AnimationFrames::interval));
    }
}

OverlayPlayback::OverlayPlayback(OverlayAnimator &animator, OverlaySurface &surface,
                                 std::shared_ptr<OverlayFrames> frames,
                                 std::function<void()> completion, bool isShown)
    : animator_(animator),
      surface_(surface),
      frames_(std::move(frames)),
      completion_(std::move(completion)),
      start_(animator.now()) {
    animator_.add(*this);
    if (isShown) {
        show(isStill() ? frames_->frames().count() / 3 : 0);
    }
}

OverlayPlayback::~OverlayPlayback() { animator_.remove(*this); }

void OverlayPlayback::changeTo(std::shared_ptr<OverlayFrames> frames) {
    frames_ = std::move(frames);
    show(index_);
}

bool OverlayPlayback::advanceTo(platform::Instant now) {
    const std::size_t index = frames_->frames().indexAt(now - start_);
    if (index != index_ && !isStill()) {
        show(index);
    }
    return !frames_->frames().isOverAt(now - start_);
}

void OverlayPlayback::show(std::size_t index) {
    index_ = index;
    surface_.paint(frames_->image(index));
}

void OverlayPlayback::complete() {
    if (const auto completion = std::exchange(completion_, {})) {
        completion();
    }
}

} // namespace corvane::x11
