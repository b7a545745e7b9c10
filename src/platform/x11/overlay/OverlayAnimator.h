#pragma once

#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/ExactTimer.h"

#include <vector>

namespace corvane::x11 {

class OverlayPlayback;
class RequestSender;

/// One clock for all animations that are running. Main thread.
class OverlayAnimator {
  public:
    /// The sender of what is drawn outlives the animator, which outlives every playback.
    explicit OverlayAnimator(RequestSender &sender);
    ~OverlayAnimator();

    OverlayAnimator(const OverlayAnimator &) = delete;
    OverlayAnimator &operator=(const OverlayAnimator &) = delete;

    /// Has a playback advance about sixty times a second until it is over.
    void add(OverlayPlayback &playback);
    void remove(OverlayPlayback &playback);

    platform::Instant now() const { return clock_.now(); }

  private:
    void advanceWhileAwake();
    void advance(platform::Instant now);
    void finish();
    void setTimer();

    RequestSender &sender_;
    const linux::Clock clock_{};
    std::vector<OverlayPlayback *> running_;
    /// Over, but not told so yet.
    std::vector<OverlayPlayback *> over_;
    platform::Instant lastAdvance_{};
    linux::ExactTimer timer_;
};

} // namespace corvane::x11
