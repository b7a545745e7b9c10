#include "platform/x11/screens/CompositorMonitor.h"

#include <xcb/xfixes.h>

#include <chrono>
#include <utility>

namespace corvane::x11 {

namespace {

constexpr std::chrono::milliseconds settlingTime(500);

} // namespace

CompositorMonitor::CompositorMonitor(XcbEvents &events, std::function<void()> changed)
    : connection_(events.connection()),
      changed_(std::move(changed)),
      isRunning_(readIsRunning()) {
    settling_.setSingleShot(true);
    settling_.setInterval(settlingTime);
    QObject::connect(&settling_, &QTimer::timeout, [this] { setRunning(true); });
    if (const auto *extension = connection_.extension(xcb_xfixes_id)) {
        follow(events, extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    }
}

void CompositorMonitor::follow(XcbEvents &events, int selectionNotify) {
    xcb_discard_reply(connection_.get(),
                      xcb_xfixes_query_version(connection_.get(), 2, 0).sequence);
    xcb_xfixes_select_selection_input(connection_.get(), connection_.root(),
                                      connection_.atoms().compositorSelection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    subscription_ = events.subscribe([this, selectionNotify](const xcb_generic_event_t &event) {
        if (XcbEvents::typeOf(event) == selectionNotify) {
            update();
        }
    });
    // Catches a change from before the events were selected.
    isRunning_ = readIsRunning();
}

bool CompositorMonitor::readIsRunning() const {
    return connection_.selectionOwner(connection_.atoms().compositorSelection) != XCB_WINDOW_NONE;
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
