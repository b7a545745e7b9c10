#include "platform/linux/SingleInstance.h"

#include <utility>

namespace corvane::x11 {

namespace {

xcb_window_t createInvisibleWindow(const XcbConnection &connection) {
    const xcb_window_t window = xcb_generate_id(connection.get());
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0, 1, 1,
                      0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

xcb_window_t ownerOf(const XcbConnection &connection, xcb_atom_t selection) {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection.get(), xcb_get_selection_owner(connection.get(), selection), nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

} // namespace

std::unique_ptr<SingleInstance> SingleInstance::claim(XcbEvents &events,
                                                      std::function<void()> startedAgain) {
    std::unique_ptr<SingleInstance> instance(
        new SingleInstance(events, std::move(startedAgain))); // NOLINT
    return instance->claimSelection() ? std::move(instance) : nullptr;
}

SingleInstance::SingleInstance(XcbEvents &events, std::function<void()> startedAgain)
    : events_(events),
      connection_(events.connection()),
      startedAgain_(std::move(startedAgain)),
      selection_(connection_.atom("_CORVANE_INSTANCE")),
      startedAgainMessage_(connection_.atom("_CORVANE_STARTED_AGAIN")),
      window_(createInvisibleWindow(connection_)) {}

/// Destroying the window gives the selection back.
SingleInstance::~SingleInstance() {
    xcb_destroy_window(connection_.get(), window_);
    connection_.flush();
}

/// No other client can act between the question and the claim.
bool SingleInstance::claimSelection() {
    xcb_grab_server(connection_.get());
    const xcb_window_t owner = ownerOf(connection_, selection_);
    if (owner == XCB_NONE) {
        xcb_set_selection_owner(connection_.get(), window_, selection_, XCB_CURRENT_TIME);
    }
    xcb_ungrab_server(connection_.get());
    if (owner != XCB_NONE) {
        tellOwner(owner);
        return false;
    }
    subscription_ = events_.subscribe([this](const auto &event) { handle(event); });
    connection_.flush();
    return true;
}

/// Waits until the server has the message: this program is about to end.
void SingleInstance::tellOwner(xcb_window_t owner) const {
    const xcb_client_message_event_t message{
        .response_type = XCB_CLIENT_MESSAGE,
        .format = 32,
        .sequence = 0,
        .window = owner,
        .type = startedAgainMessage_,
        .data = {},
    };
    connection_.check(xcb_send_event_checked(connection_.get(), 0, owner, XCB_EVENT_MASK_NO_EVENT,
                                             reinterpret_cast<const char *>(&message)));
}

void SingleInstance::handle(const xcb_generic_event_t &event) {
    if (XcbEvents::typeOf(event) != XCB_CLIENT_MESSAGE) {
        return;
    }
    const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
    if (message.window == window_ && message.type == startedAgainMessage_) {
        startedAgain_();
    }
}

} // namespace corvane::x11
