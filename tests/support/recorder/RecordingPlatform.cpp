#include "support/recorder/RecordingPlatform.h"

namespace corvane::testing {

void RecordingPlatform::behaveAsMac() {
    loginItem_.failure = Failure{"Operation not permitted"};
    windowList_.keepsNamesToItself = true;
    hotKeys_.isNeverRefused = true;
    statusBar_.isAlwaysShown = true;
    overlayWindows_.deafUnder = &alerts_;
    overlayWindows_.isKeyboardRefused = true;
}

void RecordingPlatform::advance(std::chrono::nanoseconds duration) {
    const platform::Instant end = clock_.now() + duration;
    mainQueue_.turnUntilIdle();
    for (auto next = mainQueue_.nextDeadline(); next && *next <= end;
         next = mainQueue_.nextDeadline()) {
        clock_.advanceTo(*next);
        mainQueue_.turnUntilIdle();
    }
    clock_.advanceTo(end);
    mainQueue_.turnUntilIdle();
}

} // namespace corvane::testing
