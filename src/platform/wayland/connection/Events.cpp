#include "platform/wayland/connection/Events.h"

#include <QAbstractEventDispatcher>

#include <utility>

namespace corvane::wayland {

Events::Events(std::unique_ptr<Connection> connection, std::function<void()> connectionLost)
    : connection_(std::move(connection)),
      connectionLost_(std::move(connectionLost)),
      readable_(wl_display_get_fd(connection_->display()), QSocketNotifier::Read) {
    QObject::connect(&readable_, &QSocketNotifier::activated, [this] { read(); });
    aboutToBlock_ =
        QObject::connect(QAbstractEventDispatcher::instance(),
                         &QAbstractEventDispatcher::aboutToBlock, [this] { beforeSleep(); });
}

Events::~Events() { QObject::disconnect(aboutToBlock_); }

void Events::read() {
    wl_display_dispatch(connection_->display());
    checkConnection();
}

/// A round trip may have read events already.
void Events::beforeSleep() {
    wl_display_dispatch_pending(connection_->display());
    connection_->flush();
    checkConnection();
}

void Events::checkConnection() {
    if (connection_->isLost()) {
        readable_.setEnabled(false);
        if (const auto lost = std::exchange(connectionLost_, {})) {
            lost();
        }
    }
}

} // namespace corvane::wayland
