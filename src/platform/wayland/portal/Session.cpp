#include "platform/wayland/portal/Session.h"

#include "support/Log.h"

#include <QDBusReply>
#include <QDBusUnixFileDescriptor>
#include <QVariantMap>

#include <expected>
#include <linux/input-event-codes.h>
#include <string>
#include <utility>

#include <fcntl.h>

namespace corvane::wayland::portal {

using namespace Qt::StringLiterals;

namespace {

/// What the call returns, or why it fails.
std::expected<posix::FileDescriptor, std::string> openDescriptor(const QDBusConnection &bus,
                                                                 const QDBusMessage &call) {
    constexpr int timeoutMilliseconds = 5000;
    const QDBusReply<QDBusUnixFileDescriptor> reply =
        bus.call(call, QDBus::Block, timeoutMilliseconds);
    if (!reply.isValid()) {
        return std::unexpected(reply.error().message().toStdString());
    }
    return posix::FileDescriptor(fcntl(reply.value().fileDescriptor(), F_DUPFD_CLOEXEC, 0));
}

} // namespace

QDBusMessage portalCall(const char *interface, const QString &method,
                        const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(QLatin1StringView(portalService),
                                                  QLatin1StringView(portalPath),
                                                  QLatin1StringView(interface), method);
    message.setArguments(arguments);
    return message;
}

Session::Session(QDBusConnection bus, QString path, std::vector<Stream> streams)
    : bus_(std::move(bus)),
      path_(std::move(path)),
      streams_(std::move(streams)) {}

Session::~Session() {
    if (isOpen_) {
        bus_.send(QDBusMessage::createMethodCall(QLatin1StringView(portalService), path_,
                                                 u"org.freedesktop.portal.Session"_s, u"Close"_s));
    }
}

void Session::prepareClicks() {
    const std::lock_guard lock(mutex_);
    if (std::exchange(isPrepared_, true) || !eis::EmulatedMouse::isPossible()) {
        return;
    }
    auto socket = openDescriptor(
        bus_, portalCall(remoteDesktopInterface, u"ConnectToEIS"_s,
                         {QVariant::fromValue(QDBusObjectPath(path_)), QVariantMap()}));
    if (!socket) {
        return;
    }
    hasSocket_ = true;
    mouse_ = eis::EmulatedMouse::connect(std::move(*socket));
    log(mouse_ ? "Clicks go over a socket of the desktop's own"
               : "The desktop's portal hands out a socket for clicks, and no mouse");
}

bool Session::isReady() {
    const std::lock_guard lock(mutex_);
    return isOpen_ && (!hasSocket_ || (mouse_ && mouse_->isReady()));
}

void Session::setButton(bool isPressed) {
    const std::lock_guard lock(mutex_);
    if (mouse_) {
        mouse_->setButton(isPressed);
    } else if (isOpen_ && !hasSocket_) {
        notifyButton(isPressed);
    }
}

void Session::notifyButton(bool isPressed) {
    auto message = portalCall(remoteDesktopInterface, u"NotifyPointerButton"_s,
                              {QVariant::fromValue(QDBusObjectPath(path_)), QVariantMap(),
                               int{BTN_LEFT}, QVariant::fromValue(static_cast<uint>(isPressed))});
    // A portal that was started anew does not know the session.
    message.setAutoStartService(false);
    bus_.send(message);
}

posix::FileDescriptor Session::openPipeWire() const {
    auto connection = openDescriptor(
        bus_, portalCall(screenCastInterface, u"OpenPipeWireRemote"_s,
                         {QVariant::fromValue(QDBusObjectPath(path_)), QVariantMap()}));
    if (!connection) {
        log("The desktop's portal gives no access to the screen cast: " + connection.error());
    }
    return connection ? std::move(*connection) : posix::FileDescriptor();
}

} // namespace corvane::wayland::portal
