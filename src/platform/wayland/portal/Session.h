#pragma once

#include "platform/posix/FileDescriptor.h"
#include "platform/wayland/eis/EmulatedMouse.h"
#include "support/Geometry.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace corvane::wayland::portal {

constexpr const char *portalService = "org.freedesktop.portal.Desktop";
constexpr const char *portalPath = "/org/freedesktop/portal/desktop";
constexpr const char *remoteDesktopInterface = "org.freedesktop.portal.RemoteDesktop";
constexpr const char *screenCastInterface = "org.freedesktop.portal.ScreenCast";

/// Which pointing devices a session is for, as the portal counts them.
constexpr std::uint32_t pointerDevice = 2;

/// A method of the portal.
QDBusMessage portalCall(const char *interface, const QString &method,
                        const QVariantList &arguments);

/// A monitor that the user has chosen for a session.
struct Stream {
    /// The node of PipeWire that casts it.
    std::uint32_t node = 0;
    /// Global display space.
    Rectangle frame{};

    bool operator==(const Stream &) const = default;
};

/// A remote desktop session that the user has agreed to: the right to press the button and to cast
/// monitors. Destroying it gives the right back. Any thread.
class Session {
  public:
    Session(QDBusConnection bus, QString path, std::vector<Stream> streams);
    ~Session();

    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    const QString &path() const { return path_; }
    const std::vector<Stream> &streams() const { return streams_; }

    /// False once the user or the desktop has ended it.
    bool isOpen() const { return isOpen_; }
    void markEnded() { isOpen_ = false; }

    /// To be called before the first click. Where the portal hands out a mouse (EIS), clicks no
    /// longer go over the bus. Waits for the portal.
    void prepareClicks();

    /// Whether a press would be carried out now.
    bool isReady();

    /// Presses or releases the left button where the cursor is, without waiting for the desktop.
    /// The calls of all threads are carried out in their order.
    void setButton(bool isPressed);

    /// A connection to PipeWire that shows only the session's streams; closed where there is none.
    /// Waits for the portal.
    posix::FileDescriptor openPipeWire() const;

  private:
    void notifyButton(bool isPressed);

    QDBusConnection bus_;
    const QString path_;
    const std::vector<Stream> streams_;
    std::atomic<bool> isOpen_ = true;
    std::mutex mutex_;
    bool isPrepared_ = false;
    /// From then on the portal takes no clicks over the bus.
    bool hasSocket_ = false;
    /// Null where the desktop gives none over the socket.
    std::unique_ptr<eis::EmulatedMouse> mouse_;
};

} // namespace corvane::wayland::portal
