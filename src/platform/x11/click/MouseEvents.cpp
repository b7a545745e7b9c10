#include "platform/x11/click/MouseEvents.h"

#include "platform/x11/connection/ServerAbilities.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <span>

#include <unistd.h>

namespace corvane::x11 {

namespace {

constexpr std::uint8_t logicalLeftButton = 1;

xcb_query_pointer_cookie_t queryPointer(const XcbConnection &connection) {
    return xcb_query_pointer(connection.get(), connection.root());
}

/// The mask counts logical buttons.
bool isLeftButtonDown(const xcb_query_pointer_reply_t &reply) {
    return (reply.mask & XCB_BUTTON_MASK_1) != 0;
}

bool isAnyButtonDown(const xcb_query_pointer_reply_t &reply) {
    return (reply.mask & (XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3 |
                          XCB_BUTTON_MASK_4 | XCB_BUTTON_MASK_5)) != 0;
}

/// Presses or releases a button wherever the cursor is: the program never moves it.
class FakeButtonEvent : public platform::MouseEvent {
  public:
    FakeButtonEvent(MouseSession &session, platform::MouseEventType type, std::uint8_t button)
        : session_(session),
          type_(type),
          button_(button) {}

    /// The X server's clients count clicks themselves, from the time between them.
    void setClickState(std::int64_t /*state*/) override {}

    void post() override {
        if (type_ == platform::MouseEventType::leftMouseDown) {
            session_.press(button_);
        } else {
            session_.release(button_);
        }
    }

  private:
    MouseSession &session_;
    const platform::MouseEventType type_;
    const std::uint8_t button_;
};

class FakeButtonSource : public platform::MouseEventSource {
  public:
    /// Without a button it creates no events.
    FakeButtonSource(MouseSession &session, std::optional<std::uint8_t> button)
        : session_(session),
          button_(button) {}

    std::unique_ptr<platform::MouseEvent> createMouseEvent(platform::MouseEventType type,
                                                           Point /*location*/) override {
        return button_ ? std::make_unique<FakeButtonEvent>(session_, type, *button_) : nullptr;
    }

  private:
    MouseSession &session_;
    const std::optional<std::uint8_t> button_;
};

} // namespace

MouseSession::MouseSession(const XcbConnection &server) : server_(server) { connect(); }

/// The last release of the button must not be lost with the connection.
MouseSession::~MouseSession() {
    record_.reset();
    if (isUsable()) {
        connection_->synchronise();
    }
}

void MouseSession::press(std::uint8_t button) {
    if (isUsable() && record_) {
        record_->setPressed(button);
        sendButton(XCB_BUTTON_PRESS, button);
        pointerRequest_ = queryPointer(*connection_);
        connection_->flush();
        isPressed_ = true;
    }
}

void MouseSession::release(std::uint8_t button) {
    isPressed_ = false;
    if (pointerRequest_) {
        xcb_discard_reply(connection_->get(), pointerRequest_->sequence);
        pointerRequest_.reset();
    }
    if (isUsable() && record_) {
        sendButton(XCB_BUTTON_RELEASE, button);
        record_->setReleased();
        connection_->flush();
    }
    // A lost connection may show only when something is sent; the record is still on the server.
    ensureUsable();
}

void MouseSession::sendButton(std::uint8_t type, std::uint8_t button) const {
    xcb_test_fake_input(connection_->get(), type, button, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

/// The server carries out requests in order: when it replies, the session's own events have changed
/// the button, unless they wait for the end of a grab. The pressed button counts as another one
/// when the user has changed the mapping just before the press; it must be released all the same.
std::optional<Point> MouseSession::readyPosition() {
    if (!ensureUsable()) {
        return std::nullopt;
    }
    const auto request = pointerRequest_ ? *pointerRequest_ : queryPointer(*connection_);
    pointerRequest_.reset();
    const auto pointer = reply<xcb_query_pointer_reply>(connection_->get(), request);
    if (!pointer || (isPressed_ ? !isAnyButtonDown(*pointer) : isLeftButtonDown(*pointer))) {
        return std::nullopt;
    }
    return Point{static_cast<double>(pointer->root_x), static_cast<double>(pointer->root_y)};
}

std::unique_ptr<platform::MouseEventSource> MouseSession::createEventSource() {
    if (ensureUsable()) {
        followMapping();
    }
    return std::make_unique<FakeButtonSource>(*this, isPressable_ ? leftButton_ : std::nullopt);
}

bool MouseSession::isUsable() const { return connection_ && !connection_->isLost(); }

bool MouseSession::ensureUsable() {
    if (!isUsable()) {
        connect();
    }
    return isUsable();
}

/// Releases first what a lost connection had left pressed.
void MouseSession::connect() {
    record_.reset();
    pointerRequest_.reset();
    isPressed_ = false;
    isPressable_ = false;
    leftButton_.reset();
    const bool isAgain = connection_ != nullptr;
    connection_ = server_.openAnother().value_or(nullptr);
    if (!isUsable()) {
        return;
    }
    if (isAgain) {
        releaseRecordedButtons(*connection_, getpid());
    }
    record_.emplace(*connection_);
    isPressable_ = offersFakeInput(*connection_);
    leftButton_ = readLeftButton();
}

/// Reads the mapping again after the server's event for a change, such as to left-handed use.
void MouseSession::followMapping() {
    bool isChanged = false;
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
        isChanged = isChanged || event->response_type == XCB_MAPPING_NOTIFY;
    }
    if (isChanged) {
        leftButton_ = readLeftButton();
    }
}

std::optional<std::uint8_t> MouseSession::readLeftButton() const {
    const auto mapping = reply<xcb_get_pointer_mapping_reply>(
        connection_->get(), xcb_get_pointer_mapping(connection_->get()));
    if (!mapping) {
        return std::nullopt;
    }
    const std::span<const std::uint8_t> logicalButtons(
        xcb_get_pointer_mapping_map(mapping.get()),
        static_cast<std::size_t>(xcb_get_pointer_mapping_map_length(mapping.get())));
    const auto left = std::ranges::find(logicalButtons, logicalLeftButton);
    if (left == logicalButtons.end()) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(left - logicalButtons.begin() + 1);
}

std::unique_ptr<platform::MouseSession> MouseEvents::openSession() {
    return std::make_unique<MouseSession>(connection_);
}

} // namespace corvane::x11
