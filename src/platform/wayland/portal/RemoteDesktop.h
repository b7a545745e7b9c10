#pragma once

#include "platform/wayland/portal/RestoreToken.h"
#include "platform/wayland/portal/Session.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

#include <cstdint>
#include <memory>

namespace corvane::wayland::portal {

/// What the user has answered to the desktop's question whether this program may click.
enum class Consent {
    notAsked,
    /// The desktop's window is open.
    asked,
    given,
    refused,
    /// Given, but without the pointer.
    withoutPointer,
    /// Given, but without a monitor, so that the cursor cannot be found.
    withoutMonitor,
    /// Given, and taken back since, or the desktop's portal is gone.
    ended
};

/// The portal through which the desktop lets programs click and cast the screen, both in one
/// session with one question to the user. Main thread.
class RemoteDesktop : public QObject {
    Q_OBJECT

  public:
    /// A connection to the session bus that is for nothing else.
    RemoteDesktop(QDBusConnection bus, RestoreToken token);

    /// Whether the desktop has the portal with all that is needed. Waits for it; it may be started
    /// by this.
    static bool isOffered(const QDBusConnection &bus);

    Consent consent() const { return consent_; }

    /// Whether the desktop may give the right without a question to the user.
    bool remembersConsent() const { return !token_.read().empty(); }

    /// Has the desktop ask the user, unless it does so already or the right is given.
    void ask();

    /// Sent when the user has answered and when the right is taken back.
    Q_SIGNAL void concluded();

    /// Null while the right is not given. Any thread may use it and keep it.
    const std::shared_ptr<Session> &session() const { return session_; }

  private:
    using Next = void (RemoteDesktop::*)(const QVariantMap &results);

    Q_SLOT void handleResponse(uint response, const QVariantMap &results,
                               const QDBusMessage &message);
    Q_SLOT void handleClosed(const QDBusMessage &message);
    Q_SLOT void handlePortalGone();

    void request(const char *interface, const QString &method, QVariantList arguments,
                 QVariantMap options, Next next);
    void selectDevices(const QVariantMap &created);
    void selectSources(const QVariantMap &selected);
    void start(const QVariantMap &selected);
    void finish(const QVariantMap &results);
    void conclude(Consent consent);
    void closeSession();
    QVariant sessionArgument() const;

    QDBusConnection bus_;
    const RestoreToken token_;
    const QDBusServiceWatcher portal_;
    const std::uint32_t version_;
    Consent consent_ = Consent::notAsked;
    /// The request that the portal has not answered yet.
    QString pendingRequest_;
    Next next_ = nullptr;
    int requests_ = 0;
    /// The session while it is being made.
    QString sessionPath_;
    std::shared_ptr<Session> session_;
};

} // namespace corvane::wayland::portal
