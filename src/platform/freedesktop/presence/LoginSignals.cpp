#include "platform/freedesktop/presence/LoginSignals.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

#include <unistd.h>

namespace corvane::freedesktop {

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString managerPath = QStringLiteral("/org/freedesktop/login1");
const QString managerInterface = QStringLiteral("org.freedesktop.login1.Manager");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");

const QString asleep = QStringLiteral("sleep");
const QString lockedScreen = QStringLiteral("lock");
const QString otherUser = QStringLiteral("another user");

/// A program that the session's own manager has started is told its session; one that the session
/// has started itself can be asked for.
QDBusMessage questionForSession() {
    const QString session = qEnvironmentVariable("XDG_SESSION_ID");
    auto question = QDBusMessage::createMethodCall(
        service, managerPath, managerInterface,
        session.isEmpty() ? QStringLiteral("GetSessionByPID") : QStringLiteral("GetSession"));
    question << (session.isEmpty() ? QVariant::fromValue(static_cast<uint>(getpid()))
                                   : QVariant(session));
    question.setAutoStartService(false);
    return question;
}

} // namespace

LoginSignals::LoginSignals(QDBusConnection bus,
                           std::function<void(const QString &reason, bool isAway)> changed)
    : bus_(std::move(bus)),
      changed_(std::move(changed)) {
    if (!bus_.isConnected()) {
        return;
    }
    bus_.connect(service, managerPath, managerInterface, QStringLiteral("PrepareForSleep"), this,
                 SLOT(prepareForSleep(bool)));
    findSession();
}

void LoginSignals::findSession() {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): deletes itself when it has finished
    auto *pending = new QDBusPendingCallWatcher(bus_.asyncCall(questionForSession()), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        pending->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> session = *pending;
        if (!session.isError()) {
            watchSession(session.value().path());
        }
    });
}

void LoginSignals::watchSession(const QString &path) {
    bus_.connect(service, path, sessionInterface, QStringLiteral("Lock"), this, SLOT(locked()));
    bus_.connect(service, path, sessionInterface, QStringLiteral("Unlock"), this, SLOT(unlocked()));
    bus_.connect(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                 QStringLiteral("PropertiesChanged"), this,
                 SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
}

void LoginSignals::prepareForSleep(bool isAboutToSleep) { changed_(asleep, isAboutToSleep); }

void LoginSignals::locked() { changed_(lockedScreen, true); }

void LoginSignals::unlocked() { changed_(lockedScreen, false); }

void LoginSignals::propertiesChanged(const QString &interface, const QVariantMap &changed,
                                     const QStringList & /*invalidated*/) {
    if (interface != sessionInterface) {
        return;
    }
    if (const auto hint = changed.constFind(QStringLiteral("LockedHint")); hint != changed.cend()) {
        changed_(lockedScreen, hint->toBool());
    }
    if (const auto active = changed.constFind(QStringLiteral("Active")); active != changed.cend()) {
        changed_(otherUser, !active->toBool());
    }
}

} // namespace corvane::freedesktop
