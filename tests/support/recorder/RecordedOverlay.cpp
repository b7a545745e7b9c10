#include "support/recorder/RecordedOverlay.h"

#include <functional>
#include <utility>

namespace corvane::testing {

namespace {

template <typename Event, typename Value>
void send(bool isHeard, const Event &event, Value value) {
    if (isHeard && event) {
        // A copy, because what is called may destroy the overlay.
        std::invoke(Event{event}, value);
    }
}

} // namespace

void RecordedOverlay::mouseDown(Point point) { send(hears(), events_.mouseDown, point); }

void RecordedOverlay::mouseDragged(Point point) { send(hears(), events_.mouseDragged, point); }

void RecordedOverlay::mouseUp(Point point) { send(hears(), events_.mouseUp, point); }

void RecordedOverlay::keyDown(platform::Key key) {
    const bool arrives = isKey || (hasEscapeKey && key == platform::Key::escape);
    send(hears() && arrives, events_.keyDown, key);
}

bool RecordedOverlay::hears() const {
    return isVisible && (deafUnder == nullptr || !deafUnder->isShown());
}

void RecordedOverlay::completeAnimations() {
    for (const std::function<void()> &completion : std::exchange(completions_, {})) {
        if (completion) {
            completion();
        }
    }
}

} // namespace corvane::testing
