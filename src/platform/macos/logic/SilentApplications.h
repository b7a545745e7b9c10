#pragma once

#include "platform/ContinuousClock.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <set>

namespace corvane::macos {

/// Which applications have lately left an Accessibility message unanswered. They are left alone for
/// a while: each message to one that hangs blocks the main thread. Main thread.
class SilentApplications {
  public:
    /// The clock outlives it.
    explicit SilentApplications(const platform::ContinuousClock &clock) : clock_(clock) {}

    /// Whether the process is to be left alone now.
    bool contains(std::int32_t processIdentifier) const;

    /// How long the next message may wait for its answer. The first one may take longer: a program
    /// in the background may have to be paged in.
    std::chrono::milliseconds timeout(std::int32_t processIdentifier) const;

    /// A message to the process was answered, or its time has run out.
    void noteAnswer(std::int32_t processIdentifier);
    void noteSilence(std::int32_t processIdentifier);

  private:
    const platform::ContinuousClock &clock_;
    /// Until when each is left alone.
    std::map<std::int32_t, platform::Instant> silent_;
    /// Those that have had their first message.
    std::set<std::int32_t> known_;
};

} // namespace corvane::macos
