#include "platform/x11/connection/RequestSender.h"

#include <algorithm>
#include <chrono>

namespace corvane::x11 {

void RequestSender::markDrawing() {
    if (!drawingSince_) {
        drawingSince_ = clock_.now();
    }
}

platform::Instant RequestSender::deferPastClick(platform::Instant moment) const {
    using namespace std::chrono_literals;
    // The server takes that long for the frames of some forty ripples.
    constexpr auto timeToDraw = 4ms;
    constexpr auto timeToClick = 150us;
    const platform::Instant click = click_->load();
    const bool isClickNear = click - timeToDraw <= moment && moment < click + timeToClick;
    return isClickNear ? click + timeToClick : moment;
}

void RequestSender::send() {
    prepare_();
    if (!isDeferred()) {
        drawingSince_.reset();
        connection_.flush();
    }
}

bool RequestSender::isDeferred() {
    if (!drawingSince_) {
        return false;
    }
    // While clicks are skipped beside a zone, the next one is always near.
    constexpr std::chrono::milliseconds longest(6);
    const platform::Instant now = clock_.now();
    const platform::Instant end = std::min(deferPastClick(now), *drawingSince_ + longest);
    return end > now && deferral_.set(end);
}

} // namespace corvane::x11
