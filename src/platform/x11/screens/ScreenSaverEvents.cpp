#include "platform/x11/screens/ScreenSaverEvents.h"

#include <xcb/screensaver.h>

#include <utility>

namespace corvane::x11 {

ScreenSaverEvents::ScreenSaverEvents(XcbEvents &events, std::function<void(bool isOn)> changed)
    : changed_(std::move(changed)) {
    const XcbConnection &connection = events.connection();
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(connection.get(), &xcb_screensaver_id);
    if (extension == nullptr || extension->present == 0) {
        return;
    }
    eventType_ = extension->first_event + XCB_SCREENSAVER_NOTIFY;
    xcb_screensaver_select_input(connection.get(), connection.root(),
                                 XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    connection.flush();
    subscription_ = events.subscribe([this](const auto &event) { handle(event); });
}

void ScreenSaverEvents::handle(const xcb_generic_event_t &event) const {
    if (XcbEvents::typeOf(event) == eventType_) {
        const auto &notice = reinterpret_cast<const xcb_screensaver_notify_event_t &>(event);
        changed_(notice.state == XCB_SCREENSAVER_STATE_ON ||
                 notice.state == XCB_SCREENSAVER_STATE_CYCLE);
    }
}

} // namespace corvane::x11
