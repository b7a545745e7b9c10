#include "support/RecordedOverlay.h"

#include <functional>
#include <utility>

namespace corvane::testing {

namespace {

template <typename Event, typename Value>
void send(bool isVisible, const Event &event, Value value) {
    if (isVisible && event) {
        // A copy, because what is called may destroy the overlay.
        std::invoke(Event{event}, value);
    }
}

} // namespace

void RecordedOverlay::mouseDown(Point point) { send(isVisible, events_.mouseDown, point); }

void RecordedOverlay::mouseDragged(Point point) { send(isVisible, events_.mouseDragged, point); }

void RecordedOverlay::mouseUp(Point point) { send(isVisible, events_.mouseUp, point); }

void RecordedOverlay::keyDown(platform::Key key) { send(isVisible && isKey, events_.keyDown, key); }

void RecordedOverlay::completeAnimations() {
    for (const std::function<void()> &completion : std::exchange(completions_, {})) {
        if (completion) {
            completion();
        }
    }
}

} // namespace corvane::testing
