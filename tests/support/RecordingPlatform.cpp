#include "support/RecordingPlatform.h"

namespace corvane::testing {

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
