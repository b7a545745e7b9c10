#pragma once

#include <QTimer>

#include <chrono>
#include <vector>

namespace corvane::x11 {

class OverlayPlayback;

/// One clock for all animations that are running. Main thread.
class OverlayAnimator {
  public:
    using Time = std::chrono::steady_clock::time_point;

    /// The animator outlives every playback.
    OverlayAnimator();

    /// Has a playback advance about sixty times a second until it is over.
    void add(OverlayPlayback &playback);
    void remove(OverlayPlayback &playback);

  private:
    void advance();
    void finish();

    std::vector<OverlayPlayback *> running_;
    /// Over, but not told so yet.
    std::vector<OverlayPlayback *> over_;
    QTimer timer_;
};

} // namespace corvane::x11
