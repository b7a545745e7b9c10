#include "platform/x11/connection/RequestSender.h"

#include <algorithm>
#include <chrono>

namespace corvane::x11 {

void RequestSender::draws() {
    if (!drawn_) {
        drawn_ = clock_.now();
    }
}

platform::Instant RequestSender::clearOfClick(platform::Instant moment) const {
    using namespace std::chrono_literals;
    // What the server needs for the pictures of some forty ripples.
    constexpr auto timeToDraw = 4ms;
    constexpr auto timeToClick = 150us;
    const platform::Instant click = click_->get();
    const bool isClickNear = click - timeToDraw <= moment && moment < click + timeToClick;
    return isClickNear ? click + timeToClick : moment;
}

void RequestSender::send() {
    prepare_();
    if (!isPaused()) {
        drawn_.reset();
        connection_.flush();
    }
}

bool RequestSender::isPaused() {
    if (!drawn_) {
        return false;
    }
    // One click after the other may be near, such as while they fall beside a zone.
    constexpr std::chrono::milliseconds longest(6);
    const platform::Instant now = clock_.now();
    const platform::Instant end = std::min(clearOfClick(now), *drawn_ + longest);
    return end > now && pause_.set(end);
}

} // namespace corvane::x11
