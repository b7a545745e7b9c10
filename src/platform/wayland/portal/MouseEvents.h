#pragma once

#include "platform/MouseEvents.h"
#include "platform/wayland/portal/Session.h"

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace corvane::wayland::portal {

/// Clicks in the present session of the remote desktop portal.
class MouseEvents : public platform::MouseEvents {
  public:
    /// Clicks in `session` from now on; null for none. Main thread.
    void use(std::shared_ptr<Session> session) {
        const std::lock_guard lock(mutex_);
        session_ = std::move(session);
    }

    /// A session for the calling thread; casts the monitors for as long as it exists.
    std::unique_ptr<platform::MouseSession> openSession() override;

  private:
    std::mutex mutex_;
    std::shared_ptr<Session> session_;
};

} // namespace corvane::wayland::portal
