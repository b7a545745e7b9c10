#pragma once

#include "platform/x11/connection/EventMasks.h"
#include "platform/x11/connection/RequestSender.h"
#include "platform/x11/connection/XcbConnection.h"
#include "support/Subscriptions.h"

#include <QMetaObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <utility>

namespace corvane::x11 {

/// The main thread's connection to the X server, whose events Qt's event loop delivers. Main
/// thread.
class XcbEvents {
  public:
    using Handler = Subscriptions<xcb_generic_event_t>::Handler;
    using Subscription = Subscriptions<xcb_generic_event_t>::Subscription;

    /// Calls `connectionLost` once when the server has gone away.
    XcbEvents(std::unique_ptr<XcbConnection> connection, std::function<void()> connectionLost);
    ~XcbEvents();

    XcbEvents(const XcbEvents &) = delete;
    XcbEvents &operator=(const XcbEvents &) = delete;

    /// Requests left in its buffer are sent before the event loop sleeps.
    const XcbConnection &connection() const { return *connection_; }

    /// Calls `handler` with every event until the subscription is destroyed. Errors of unchecked
    /// requests are not delivered. The subscriber selects its events, those of a window's mask
    /// through `masks`.
    [[nodiscard]] Subscription subscribe(Handler handler) {
        return subscriptions_.add(std::move(handler));
    }

    EventMasks &masks() { return masks_; }

    RequestSender &sender() { return sender_; }

    /// The type of an event, whether the server or another client sent it.
    static int typeOf(const xcb_generic_event_t &event);
    /// Whether another client sent it, so that its content may be wrong.
    static bool isSentByClient(const xcb_generic_event_t &event);

  private:
    using NextEvent = xcb_generic_event_t *(*)(xcb_connection_t *);

    void beforeSleep();
    void deliverAll(NextEvent nextEvent);
    void checkConnection();

    std::unique_ptr<XcbConnection> connection_;
    EventMasks masks_;
    RequestSender sender_;
    std::function<void()> connectionLost_;
    Subscriptions<xcb_generic_event_t> subscriptions_;
    QSocketNotifier readable_;
    QMetaObject::Connection aboutToBlock_;
};

} // namespace corvane::x11
