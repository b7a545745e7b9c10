#include "platform/wayland/portal/RemoteDesktop.h"

#include "support/Log.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::wayland::portal {

using namespace Qt::StringLiterals;

namespace {

constexpr std::uint32_t monitorSource = 1;
/// The cursor comes as a position beside the picture, not painted into it.
constexpr std::uint32_t cursorAsMetadata = 4;
constexpr std::uint32_t untilRevoked = 2;
/// Of the remote desktop portal.
constexpr std::uint32_t versionWithTokens = 2;

constexpr uint granted = 0;

QVariant number(std::uint32_t value) { return QVariant::fromValue(value); }

std::uint32_t readProperty(const QDBusConnection &bus, const char *interface, const QString &name) {
    // The portal and what it needs of the desktop may only be starting, as at login.
    constexpr int timeoutMilliseconds = 20000;
    auto message = QDBusMessage::createMethodCall(QLatin1StringView(portalService),
                                                  QLatin1StringView(portalPath),
                                                  u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message << QString::fromLatin1(interface) << name;
    const QDBusReply<QVariant> reply = bus.call(message, QDBus::Block, timeoutMilliseconds);
    return reply.isValid() ? reply.value().toUInt() : 0;
}

/// Where the portal answers the request of that token.
QString requestPath(const QDBusConnection &bus, const QString &token) {
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return u"%1/request/%2/%3"_s.arg(QLatin1StringView(portalPath), sender, token);
}

/// A pair of numbers in a stream's description.
std::optional<std::pair<int, int>> pairIn(const QVariantMap &map, const QString &key) {
    const QVariant value = map.value(key);
    if (!value.canConvert<QDBusArgument>()) {
        return std::nullopt;
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"(ii)") {
        return std::nullopt;
    }
    std::pair<int, int> numbers;
    argument.beginStructure();
    argument >> numbers.first >> numbers.second;
    argument.endStructure();
    return numbers;
}

/// Only those with a position: the cursor in the others cannot be located.
std::vector<Stream> streamsIn(const QVariantMap &results) {
    std::vector<Stream> streams;
    const QVariant value = results.value(u"streams"_s);
    if (!value.canConvert<QDBusArgument>()) {
        return streams;
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"a(ua{sv})") {
        return streams;
    }
    argument.beginArray();
    while (!argument.atEnd()) {
        uint node = 0;
        QVariantMap properties;
        argument.beginStructure();
        argument >> node >> properties;
        argument.endStructure();
        const auto position = pairIn(properties, u"position"_s);
        const auto size = pairIn(properties, u"size"_s);
        if (position && size) {
            streams.push_back({.node = node,
                               .frame = {double(position->first), double(position->second),
                                         double(size->first), double(size->second)}});
        }
    }
    argument.endArray();
    return streams;
}

} // namespace

bool RemoteDesktop::isOffered(const QDBusConnection &bus) {
    return (readProperty(bus, remoteDesktopInterface, u"AvailableDeviceTypes"_s) & pointerDevice) !=
               0 &&
           (readProperty(bus, screenCastInterface, u"AvailableCursorModes"_s) & cursorAsMetadata) !=
               0;
}

RemoteDesktop::RemoteDesktop(QDBusConnection bus, RestoreToken token)
    : bus_(std::move(bus)),
      token_(std::move(token)),
      portal_(QLatin1StringView(portalService), bus_, QDBusServiceWatcher::WatchForUnregistration),
      version_(readProperty(bus_, remoteDesktopInterface, u"version"_s)) {
    const QString service = QLatin1StringView(portalService);
    bus_.connect(service, {}, u"org.freedesktop.portal.Request"_s, u"Response"_s, this,
                 SLOT(handleResponse(uint, QVariantMap, QDBusMessage)));
    bus_.connect(service, {}, u"org.freedesktop.portal.Session"_s, u"Closed"_s, this,
                 SLOT(handleClosed(QDBusMessage)));
    bus_.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                 u"Disconnected"_s, this, SLOT(handlePortalGone()));
    connect(&portal_, &QDBusServiceWatcher::serviceUnregistered, this,
            &RemoteDesktop::handlePortalGone);
}

void RemoteDesktop::ask() {
    if (consent_ == Consent::asked || consent_ == Consent::given) {
        return;
    }
    consent_ = Consent::asked;
    request(remoteDesktopInterface, u"CreateSession"_s, {},
            {{u"session_handle_token"_s, u"corvane%1"_s.arg(requests_)}},
            &RemoteDesktop::selectDevices);
}

void RemoteDesktop::selectDevices(const QVariantMap &created) {
    sessionPath_ = created.value(u"session_handle"_s).toString();
    QVariantMap options{{u"types"_s, number(pointerDevice)}};
    if (version_ >= versionWithTokens) {
        options.insert(u"persist_mode"_s, number(untilRevoked));
        if (const std::string token = token_.read(); !token.empty()) {
            options.insert(u"restore_token"_s, QString::fromStdString(token));
        }
    }
    request(remoteDesktopInterface, u"SelectDevices"_s, {sessionArgument()}, options,
            &RemoteDesktop::selectSources);
}

void RemoteDesktop::selectSources(const QVariantMap & /*selected*/) {
    request(screenCastInterface, u"SelectSources"_s, {sessionArgument()},
            {{u"types"_s, number(monitorSource)},
             {u"multiple"_s, true},
             {u"cursor_mode"_s, number(cursorAsMetadata)}},
            &RemoteDesktop::start);
}

void RemoteDesktop::start(const QVariantMap & /*selected*/) {
    request(remoteDesktopInterface, u"Start"_s, {sessionArgument(), QString()}, {},
            &RemoteDesktop::finish);
}

void RemoteDesktop::finish(const QVariantMap &results) {
    if (const QString token = results.value(u"restore_token"_s).toString(); !token.isEmpty()) {
        token_.write(token.toStdString());
    }
    auto streams = streamsIn(results);
    if ((results.value(u"devices"_s).toUInt() & pointerDevice) == 0) {
        closeSession();
        conclude(Consent::withoutPointer);
    } else if (streams.empty()) {
        closeSession();
        conclude(Consent::withoutMonitor);
    } else {
        session_ =
            std::make_shared<Session>(bus_, std::exchange(sessionPath_, {}), std::move(streams));
        conclude(Consent::given);
    }
}

void RemoteDesktop::request(const char *interface, const QString &method, QVariantList arguments,
                            QVariantMap options, Next next) {
    const QString token = u"corvane%1"_s.arg(++requests_);
    options.insert(u"handle_token"_s, token);
    arguments << options;
    pendingRequest_ = requestPath(bus_, token);
    next_ = next;
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): deletes itself when it has finished
    auto *call =
        new QDBusPendingCallWatcher(bus_.asyncCall(portalCall(interface, method, arguments)), this);
    connect(call, &QDBusPendingCallWatcher::finished, this,
            [this, call, method, request = pendingRequest_] {
                call->deleteLater();
                if (call->isError() && request == pendingRequest_) {
                    log("The desktop's portal fails in " + method.toStdString() + ": " +
                        call->error().message().toStdString());
                    closeSession();
                    conclude(Consent::refused);
                }
            });
}

void RemoteDesktop::handleResponse(uint response, const QVariantMap &results,
                                   const QDBusMessage &message) {
    if (pendingRequest_.isEmpty() || message.path() != pendingRequest_) {
        return;
    }
    pendingRequest_.clear();
    if (response == granted) {
        (this->*next_)(results);
    } else {
        closeSession();
        conclude(Consent::refused);
    }
}

void RemoteDesktop::handleClosed(const QDBusMessage &message) {
    if (session_ && message.path() == session_->path()) {
        session_->markEnded();
        session_.reset();
        conclude(Consent::ended);
    }
}

void RemoteDesktop::handlePortalGone() {
    sessionPath_.clear();
    if (session_) {
        session_->markEnded();
        session_.reset();
        conclude(Consent::ended);
    } else if (consent_ == Consent::asked) {
        conclude(Consent::ended);
    }
}

void RemoteDesktop::conclude(Consent consent) {
    pendingRequest_.clear();
    consent_ = consent;
    Q_EMIT concluded();
}

/// The desktop may show the session, though it is of no use.
void RemoteDesktop::closeSession() {
    if (!sessionPath_.isEmpty()) {
        bus_.send(QDBusMessage::createMethodCall(QLatin1StringView(portalService),
                                                 std::exchange(sessionPath_, {}),
                                                 u"org.freedesktop.portal.Session"_s, u"Close"_s));
    }
}

QVariant RemoteDesktop::sessionArgument() const {
    return QVariant::fromValue(QDBusObjectPath(sessionPath_));
}

} // namespace corvane::wayland::portal
