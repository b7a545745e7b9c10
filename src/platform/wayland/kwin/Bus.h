#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QString>
#include <QVariantList>

namespace corvane::wayland::kwin {

/// The connection to the session bus that everything about KWin shares; not connected where there
/// is no bus. KWin does not come back to a bus that was replaced, so the connection is not made
/// anew. Any thread.
QDBusConnection sessionBus();

/// Whether KWin is on the session bus. Any thread.
bool isRunning();

/// An object of another program on the bus.
struct RemoteObject {
    QString service;
    QString path;
    QString interface;

    QDBusMessage message(const QString &method, const QVariantList &arguments) const;

    /// Waits for the reply, for a few seconds at most.
    QDBusMessage call(const QString &method, const QVariantList &arguments = {}) const;
    /// Does not wait for the reply.
    void send(const QString &method, const QVariantList &arguments = {}) const;
};

} // namespace corvane::wayland::kwin
