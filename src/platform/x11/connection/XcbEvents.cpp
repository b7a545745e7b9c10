#include "platform/x11/connection/XcbEvents.h"

#include <QAbstractEventDispatcher>

#include <utility>

namespace corvane::x11 {

namespace {

constexpr int sentByClient = 0x80;

} // namespace

XcbEvents::XcbEvents(std::unique_ptr<XcbConnection> connection,
                     std::function<void()> connectionLost)
    : connection_(std::move(connection)),
      masks_(*connection_),
      sender_(*connection_),
      connectionLost_(std::move(connectionLost)),
      readable_(connection_->fileDescriptor(), QSocketNotifier::Read) {
    QObject::connect(&readable_, &QSocketNotifier::activated,
                     [this] { deliverAll(xcb_poll_for_event); });
    aboutToBlock_ =
        QObject::connect(QAbstractEventDispatcher::instance(),
                         &QAbstractEventDispatcher::aboutToBlock, [this] { beforeSleep(); });
}

XcbEvents::~XcbEvents() { QObject::disconnect(aboutToBlock_); }

int XcbEvents::typeOf(const xcb_generic_event_t &event) {
    return event.response_type & ~sentByClient;
}

bool XcbEvents::isSentByClient(const xcb_generic_event_t &event) {
    return (event.response_type & sentByClient) != 0;
}

void XcbEvents::beforeSleep() {
    // Events that were read while waiting for a reply no longer make the descriptor readable.
    deliverAll(xcb_poll_for_queued_event);
    sender_.send();
}

void XcbEvents::deliverAll(NextEvent nextEvent) {
    while (const XcbReply<xcb_generic_event_t> event{nextEvent(connection_->get())}) {
        const bool isError = event->response_type == 0;
        if (!isError) {
            subscriptions_.call(*event);
        }
    }
    checkConnection();
}

void XcbEvents::checkConnection() {
    if (!connection_->isLost() || !readable_.isEnabled()) {
        return;
    }
    readable_.setEnabled(false);
    connectionLost_();
}

} // namespace corvane::x11
