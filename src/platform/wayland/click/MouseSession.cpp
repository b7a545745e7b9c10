#include "platform/wayland/click/MouseSession.h"

#include "platform/wayland/click/ButtonSource.h"

#include <optional>
#include <utility>

namespace corvane::wayland {

std::unique_ptr<platform::MouseSession> MouseEvents::openSession() {
    return std::make_unique<MouseSession>(cursorReaders_ ? cursorReaders_() : nullptr,
                                          otherDevices_);
}

MouseSession::MouseSession(std::unique_ptr<CursorReader> cursor,
                           MouseEvents::OtherDevices otherDevices)
    : otherDevices_(std::move(otherDevices)),
      reader_(std::move(cursor)) {
    connect();
}

/// While a button is held a probe does not find the cursor; where it was at the press is known.
std::optional<Point> MouseSession::readyPosition() {
    if (!isPressed_) {
        position_ = ensureUsable() && device_->isReady() ? cursorPosition() : std::nullopt;
    }
    return position_;
}

std::unique_ptr<platform::MouseEventSource> MouseSession::createEventSource() {
    return std::make_unique<ButtonSource>(
        [this](bool isPressed) { isPressed ? press() : release(); });
}

/// A compositor that is late would see press and release, or many clicks, at the same time: the
/// hold begins when the press has been carried out.
void MouseSession::press() {
    if (isUsable()) {
        record_.addPress();
        isPressed_ = true;
        device_->press();
        connection_->synchronise();
    }
}

/// A compositor drops what it has not read yet of a client that is gone: the press is over when the
/// release has been carried out. The compositor may outlive the connection.
void MouseSession::release() {
    if (!isPressed_) {
        return;
    }
    if (!releaseOnce() && ensureUsable()) {
        releaseOnce();
    }
    record_.removePress();
    isPressed_ = false;
}

bool MouseSession::releaseOnce() const {
    if (!isUsable()) {
        return false;
    }
    device_->release();
    return connection_->synchronise();
}

std::optional<Point> MouseSession::cursorPosition() const {
    if (reader_) {
        return reader_->position();
    }
    return probe_ ? probe_->position() : std::nullopt;
}

bool MouseSession::ensureUsable() {
    if (!isUsable()) {
        connect();
    }
    return isUsable();
}

void MouseSession::connect() {
    probe_.reset();
    device_.reset();
    connection_ = Connection::open();
    device_ = connection_ ? ClickDevice::make(*connection_) : nullptr;
    if (connection_ && !device_ && otherDevices_) {
        device_ = otherDevices_();
    }
    probe_ = device_ && !reader_ ? CursorProbe::make(*connection_, *device_) : nullptr;
}

} // namespace corvane::wayland
