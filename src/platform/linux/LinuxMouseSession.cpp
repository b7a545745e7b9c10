#include "platform/linux/LinuxMouseSession.h"

#include "platform/linux/ServerAbilities.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <span>
#include <utility>

namespace corvane::x11 {

namespace {

constexpr std::uint8_t logicalLeftButton = 1;

/// Presses or releases a button wherever the cursor is: the program never moves it.
class FakeButtonEvent : public platform::MouseEvent {
  public:
    FakeButtonEvent(const XcbConnection &connection, platform::MouseEventType type,
                    std::uint8_t button)
        : connection_(connection),
          type_(type == platform::MouseEventType::leftMouseDown ? XCB_BUTTON_PRESS
                                                                : XCB_BUTTON_RELEASE),
          button_(button) {}

    /// The X server's clients count clicks themselves, from the time between them.
    void setClickState(std::int64_t /*state*/) override {}

    void post() override {
        xcb_test_fake_input(connection_.get(), type_, button_, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        connection_.flush();
    }

  private:
    const XcbConnection &connection_;
    const std::uint8_t type_;
    const std::uint8_t button_;
};

class FakeButtonSource : public platform::MouseEventSource {
  public:
    FakeButtonSource(const XcbConnection &connection, std::uint8_t button)
        : connection_(connection),
          button_(button) {}

    std::unique_ptr<platform::MouseEvent> createMouseEvent(platform::MouseEventType type,
                                                           Point /*location*/) override {
        if (connection_.isLost()) {
            return nullptr;
        }
        return std::make_unique<FakeButtonEvent>(connection_, type, button_);
    }

  private:
    const XcbConnection &connection_;
    const std::uint8_t button_;
};

} // namespace

LinuxMouseSession::LinuxMouseSession(std::unique_ptr<XcbConnection> connection)
    : connection_(std::move(connection)) {
    if (isUsable() && offersFakeInput(*connection_)) {
        leftButton_ = readLeftButton();
        isPressable_ = true;
    }
}

/// The last release of the button must not be lost with the connection.
LinuxMouseSession::~LinuxMouseSession() {
    if (isUsable()) {
        connection_->synchronise();
    }
}

std::optional<Point> LinuxMouseSession::cursorLocation() {
    if (!isUsable()) {
        return std::nullopt;
    }
    const auto cookie = xcb_query_pointer(connection_->get(), connection_->root());
    const XcbReply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection_->get(), cookie, nullptr));
    if (!reply) {
        return std::nullopt;
    }
    return Point{static_cast<double>(reply->root_x), static_cast<double>(reply->root_y)};
}

std::unique_ptr<platform::MouseEventSource> LinuxMouseSession::createEventSource() {
    if (!isUsable() || !isPressable_) {
        return nullptr;
    }
    followMapping();
    return leftButton_ ? std::make_unique<FakeButtonSource>(*connection_, *leftButton_) : nullptr;
}

bool LinuxMouseSession::isUsable() const { return connection_ && !connection_->isLost(); }

/// The server tells every client when the user changes hands.
void LinuxMouseSession::followMapping() {
    bool isChanged = false;
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
        isChanged = isChanged || event->response_type == XCB_MAPPING_NOTIFY;
    }
    if (isChanged) {
        leftButton_ = readLeftButton();
    }
}

std::optional<std::uint8_t> LinuxMouseSession::readLeftButton() const {
    const auto cookie = xcb_get_pointer_mapping(connection_->get());
    const XcbReply<xcb_get_pointer_mapping_reply_t> reply(
        xcb_get_pointer_mapping_reply(connection_->get(), cookie, nullptr));
    if (!reply) {
        return std::nullopt;
    }
    const std::span<const std::uint8_t> logicalButtons(
        xcb_get_pointer_mapping_map(reply.get()),
        static_cast<std::size_t>(xcb_get_pointer_mapping_map_length(reply.get())));
    const auto left = std::ranges::find(logicalButtons, logicalLeftButton);
    if (left == logicalButtons.end()) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(left - logicalButtons.begin() + 1);
}

} // namespace corvane::x11
