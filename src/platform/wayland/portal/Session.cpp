#include "platform/wayland/portal/Session.h"

#include "support/Log.h"

#include <QDBusReply>
#include <QDBusUnixFileDescriptor>
#include <QVariantMap>

#include <linux/input-event-codes.h>
#include <string>
#include <utility>

#include <fcntl.h>

namespace corvane::wayland::portal {

using namespace Qt::StringLiterals;

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

void Session::setButton(bool isPressed) {
    if (!isOpen_) {
        return;
    }
    auto message = portalCall(remoteDesktopInterface, u"NotifyPointerButton"_s,
                              {QVariant::fromValue(QDBusObjectPath(path_)), QVariantMap(),
                               int{BTN_LEFT}, QVariant::fromValue(static_cast<uint>(isPressed))});
    // A portal that was started anew does not know the session.
    message.setAutoStartService(false);
    bus_.send(message);
}

posix::FileDescriptor Session::openPipeWire() const {
    constexpr int timeoutMilliseconds = 5000;
    const QDBusReply<QDBusUnixFileDescriptor> reply =
        bus_.call(portalCall(screenCastInterface, u"OpenPipeWireRemote"_s,
                             {QVariant::fromValue(QDBusObjectPath(path_)), QVariantMap()}),
                  QDBus::Block, timeoutMilliseconds);
    if (!reply.isValid()) {
        log("The desktop's portal gives no access to the screen cast: " +
            reply.error().message().toStdString());
        return posix::FileDescriptor();
    }
    return posix::FileDescriptor(fcntl(reply.value().fileDescriptor(), F_DUPFD_CLOEXEC, 0));
}

} // namespace corvane::wayland::portal
