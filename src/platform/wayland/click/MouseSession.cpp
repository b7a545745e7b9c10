#include "platform/wayland/click/MouseSession.h"

#include "platform/wayland/click/ButtonSource.h"
#include "platform/wayland/click/MouseEvents.h"

#include <optional>
#include <utility>

namespace corvane::wayland {

bool letsProgramsClick(const Connection &connection) {
    const bool canShow = connection.compositor() != nullptr &&
                         connection.sharedMemory() != nullptr && connection.layerShell() != nullptr;
    const bool canProbe =
        connection.virtualPointers() != nullptr && connection.viewporter() != nullptr;
    return canShow && (canProbe || connection.fakeInput() != nullptr);
}

std::unique_ptr<platform::MouseSession> MouseEvents::openSession() {
    return std::make_unique<MouseSession>(cursorReaders_ ? cursorReaders_() : nullptr);
}

MouseSession::MouseSession(std::unique_ptr<CursorReader> cursor) : reader_(std::move(cursor)) {
    connect();
}

/// The last release of the button must not be lost with the connection.
MouseSession::~MouseSession() {
    if (isUsable()) {
        connection_->synchronise();
    }
}

/// While a button is held a probe does not find the cursor; where it was at the press is known.
std::optional<Point> MouseSession::readyPosition() {
    if (!isPressed_) {
        position_ = ensureUsable() ? cursorPosition() : std::nullopt;
    }
    return position_;
}

std::unique_ptr<platform::MouseEventSource> MouseSession::createEventSource() {
    return std::make_unique<ButtonSource>(
        [this](bool isPressed) { isPressed ? press() : release(); });
}

void MouseSession::press() {
    if (isUsable()) {
        record_.addPress();
        isPressed_ = true;
        device_->press();
    }
}

void MouseSession::release() {
    if (!isPressed_) {
        return;
    }
    if (isUsable()) {
        device_->release();
    }
    // The loss of a connection may show when something is sent; the compositor may live.
    if (!isUsable() && ensureUsable()) {
        device_->release();
    }
    record_.removePress();
    isPressed_ = false;
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
    probe_ = device_ && !reader_ ? CursorProbe::make(*connection_, *device_) : nullptr;
}

} // namespace corvane::wayland
