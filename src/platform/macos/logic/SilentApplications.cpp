#include "platform/macos/logic/SilentApplications.h"

namespace corvane::macos {

namespace {

/// Messages are sent on the main thread, many times a second while a zone is tracked.
constexpr std::chrono::milliseconds usualTimeout{250};
constexpr std::chrono::milliseconds firstTimeout{2000};
constexpr std::chrono::seconds rest{1};

} // namespace

bool SilentApplications::contains(std::int32_t processIdentifier) const {
    const auto found = silent_.find(processIdentifier);
    return found != silent_.end() && clock_.now() < found->second;
}

std::chrono::milliseconds SilentApplications::timeout(std::int32_t processIdentifier) const {
    return known_.contains(processIdentifier) ? usualTimeout : firstTimeout;
}

void SilentApplications::noteAnswer(std::int32_t processIdentifier) {
    known_.insert(processIdentifier);
}

void SilentApplications::noteSilence(std::int32_t processIdentifier) {
    known_.insert(processIdentifier);
    const platform::Instant now = clock_.now();
    std::erase_if(silent_, [now](const auto &entry) { return entry.second <= now; });
    silent_[processIdentifier] = now + rest;
}

} // namespace corvane::macos
