#include "platform/x11/screens/CompositorMonitor.h"

#include <xcb/xfixes.h>

#include <chrono>
#include <string>
#include <utility>

namespace corvane::x11 {

namespace {

constexpr std::chrono::milliseconds settlingTime(500);

} // namespace

CompositorMonitor::CompositorMonitor(XcbEvents &events, std::function<void()> changed)
    : connection_(events.connection()),
      changed_(std::move(changed)),
      selection_(connection_.atom("_NET_WM_CM_S" + std::to_string(connection_.screenNumber()))),
      isRunning_(readIsRunning()) {
    settling_.setSingleShot(true);
    settling_.setInterval(settlingTime);
    QObject::connect(&settling_, &QTimer::timeout, [this] { setRunning(true); });
    const auto *extension = xcb_get_extension_data(connection_.get(), &xcb_xfixes_id);
    if (extension != nullptr && extension->present != 0) {
        follow(events);
    }
}

void CompositorMonitor::follow(XcbEvents &events) {
    xcb_discard_reply(connection_.get(),
                      xcb_xfixes_query_version(connection_.get(), 2, 0).sequence);
    xcb_xfixes_select_selection_input(connection_.get(), connection_.root(), selection_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const int notify = xcb_get_extension_data(connection_.get(), &xcb_xfixes_id)->first_event +
                       XCB_XFIXES_SELECTION_NOTIFY;
    subscription_ = events.subscribe([this, notify](const xcb_generic_event_t &event) {
        if (XcbEvents::typeOf(event) == notify) {
            update();
        }
    });
    // It may have changed before the events were selected.
    isRunning_ = readIsRunning();
}

bool CompositorMonitor::readIsRunning() const {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection_.get(), xcb_get_selection_owner(connection_.get(), selection_), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void CompositorMonitor::update() {
    if (readIsRunning()) {
        settling_.start();
    } else {
        settling_.stop();
        setRunning(false);
    }
}

void CompositorMonitor::setRunning(bool isRunning) {
    if (std::exchange(isRunning_, isRunning) != isRunning) {
        changed_();
    }
}

} // namespace corvane::x11
