#include "platform/wayland/portal/MouseEvents.h"

#include "platform/wayland/click/ButtonSource.h"
#include "platform/wayland/portal/CursorCast.h"
#include "support/Log.h"

#include <optional>

namespace corvane::wayland::portal {

namespace {

class MouseSession : public platform::MouseSession {
  public:
    explicit MouseSession(std::shared_ptr<Session> session) : session_(std::move(session)) {
        if (session_) {
            session_->prepareClicks();
            cast_.emplace(*session_);
            if (!cast_->isStarted()) {
                log("The cursor cannot be found: the desktop's screen cast does not start");
            }
        }
    }

    /// Where the cursor was at the press is known: the release waits for nothing.
    std::optional<Point> readyPosition() override {
        if (!isPressed_) {
            position_ = session_ && session_->isReady() ? cast_->position() : std::nullopt;
        }
        return position_;
    }

    std::unique_ptr<platform::MouseEventSource> createEventSource() override {
        return std::make_unique<ButtonSource>([this](bool isPressed) { setButton(isPressed); });
    }

  private:
    void setButton(bool isPressed) {
        isPressed_ = isPressed;
        if (session_) {
            session_->setButton(isPressed);
        }
    }

    const std::shared_ptr<Session> session_;
    std::optional<CursorCast> cast_;
    bool isPressed_ = false;
    std::optional<Point> position_;
};

} // namespace

std::unique_ptr<platform::MouseSession> MouseEvents::openSession() {
    std::shared_ptr<Session> session;
    {
        const std::lock_guard lock(mutex_);
        session = session_;
    }
    return std::make_unique<MouseSession>(std::move(session));
}

} // namespace corvane::wayland::portal
