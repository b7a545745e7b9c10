#include "platform/freedesktop/presence/ScreenSaverSignals.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <array>
#include <utility>

namespace corvane::freedesktop {

namespace {

/// KDE's locker, and the desktops whose saver locks by default and announces both by one signal.
/// GNOME Shell also announces a saver without a lock this way; its lock is known from the login
/// manager's LockedHint.
constexpr std::array interfaces = {"org.freedesktop.ScreenSaver", "org.mate.ScreenSaver",
                                   "org.cinnamon.ScreenSaver", "org.xfce.ScreenSaver"};

} // namespace

ScreenSaverSignals::ScreenSaverSignals(std::string busAddress,
                                       std::function<void(bool isLocked)> changed)
    : changed_(std::move(changed)),
      bus_([this] { busChanged(); }, std::move(busAddress)) {
    savers_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&savers_, &QDBusServiceWatcher::serviceUnregistered, this, &ScreenSaverSignals::gone);
    listen();
}

void ScreenSaverSignals::busChanged() {
    for (const QString &saver : savers_.watchedServices()) {
        gone(saver);
    }
    listen();
}

void ScreenSaverSignals::listen() {
    QDBusConnection bus = bus_.connection();
    if (!bus.isConnected()) {
        return;
    }
    savers_.setConnection(bus);
    for (const char *interface : interfaces) {
        bus.connect(QString(), QString(), QString::fromLatin1(interface),
                    QStringLiteral("ActiveChanged"), this, SLOT(activeChanged(bool, QDBusMessage)));
    }
}

void ScreenSaverSignals::activeChanged(bool isLocked, const QDBusMessage &message) {
    changed_(isLocked);
    if (isLocked) {
        watch(message.service());
    } else {
        savers_.setWatchedServices({});
    }
}

/// A locker that crashes sends no signal, and it may have crashed before it is watched.
void ScreenSaverSignals::watch(const QString &saver) {
    savers_.addWatchedService(saver);
    auto request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    request << saver;
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): deletes itself when it has finished
    auto *pending = new QDBusPendingCallWatcher(bus_.connection().asyncCall(request), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, saver] {
        pending->deleteLater();
        const QDBusPendingReply<bool> isThere = *pending;
        if (!isThere.isError() && !isThere.value()) {
            gone(saver);
        }
    });
}

void ScreenSaverSignals::gone(const QString &saver) {
    if (savers_.removeWatchedService(saver)) {
        changed_(false);
    }
}

} // namespace corvane::freedesktop
