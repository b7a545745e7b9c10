#pragma once

#include "platform/UserSession.h"
#include "support/OneThread.h"

#include <utility>

namespace corvane::testing {

/// A login session whose state a test sets. Main thread.
class RecordingUserSession : public platform::UserSession {
  public:
    platform::SessionState state() const override { return state_; }

    void whenChanged(std::function<void()> changed) override {
        mainThread_.check();
        changed_ = std::move(changed);
    }

    /// Announces a change.
    void become(platform::SessionState state) {
        if (std::exchange(state_, state) != state && changed_) {
            changed_();
        }
    }

  private:
    const OneThread mainThread_{"the user session"};
    platform::SessionState state_ = platform::SessionState::active;
    std::function<void()> changed_;
};

} // namespace corvane::testing
