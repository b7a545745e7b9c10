#include "platform/freedesktop/bus/SessionBus.h"

#include "platform/linux/environment/UserDirectories.h"
#include "platform/posix/UnixSocket.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <utility>

#include <poll.h>

namespace corvane::freedesktop {

namespace {

/// A session without a bus costs next to nothing.
constexpr std::chrono::seconds searchPeriod{3};

/// Every connection has a name of its own in the process, also those that are gone.
QString nextName() {
    static int connections = 0;
    return QStringLiteral("session-bus-%1").arg(++connections);
}

/// Where a bus listens in the file system; empty for one that listens elsewhere.
std::filesystem::path socketOf(const std::string &address) {
    const QString first = QString::fromStdString(address).section(QLatin1Char(';'), 0, 0);
    const QString scheme = QStringLiteral("unix:");
    if (!first.startsWith(scheme)) {
        return {};
    }
    const QString key = QStringLiteral("path=");
    for (const QString &part : first.mid(scheme.size()).split(QLatin1Char(','))) {
        if (part.startsWith(key)) {
            return QByteArray::fromPercentEncoding(part.mid(key.size()).toUtf8()).toStdString();
        }
    }
    return {};
}

/// Whether a bus answers there at once. The toolkit would wait for one that does not, and the main
/// thread with it.
bool isAnswered(const posix::FileDescriptor &connection) {
    constexpr std::chrono::milliseconds patience{100};
    const std::string user = QByteArray::number(geteuid()).toHex().toStdString();
    posix::sendSome(connection, std::string(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
    pollfd answer{.fd = connection.get(), .events = POLLIN, .revents = 0};
    std::array<char, 64> bytes{};
    return poll(&answer, 1, static_cast<int>(patience.count())) == 1 &&
           read(connection.get(), bytes.data(), bytes.size()) > 0 &&
           std::string_view(bytes.data(), bytes.size()).starts_with("OK");
}

std::filesystem::path socketOfUser() {
    const auto runtime = linux::runtimeDirectory();
    return runtime ? *runtime / "bus" : std::filesystem::path();
}

std::string namedAddress() {
    const char *address = std::getenv("DBUS_SESSION_BUS_ADDRESS"); // NOLINT(concurrency-mt-unsafe)
    return address != nullptr ? address : "";
}

} // namespace

std::string sessionBusAddress() {
    const std::string named = namedAddress();
    const auto socket = socketOfUser();
    return named.empty() && !socket.empty() ? "unix:path=" + socket.string() : named;
}

bool hasSessionBus() {
    std::error_code error;
    return !namedAddress().empty() || std::filesystem::exists(socketOfUser(), error);
}

SessionBus::SessionBus(std::function<void()> changed, std::string address, uid_t user)
    : changed_(std::move(changed)),
      address_(std::move(address)),
      user_(user) {
    search_.setInterval(searchPeriod);
    connect(&search_, &QTimer::timeout, this, &SessionBus::lookForAnother);
    connectNow();
}

SessionBus::~SessionBus() { disconnectNow(); }

void SessionBus::connectNow() {
    if (address_.empty()) {
        return;
    }
    connection_ = QDBusConnection::connectToBus(QString::fromStdString(address_), nextName());
    if (!connection_.isConnected()) {
        disconnectNow();
        search_.start();
        return;
    }
    search_.stop();
    connection_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                        QStringLiteral("org.freedesktop.DBus.Local"),
                        QStringLiteral("Disconnected"), this, SLOT(lost()));
}

void SessionBus::disconnectNow() {
    QDBusConnection::disconnectFromBus(connection_.name());
    connection_ = QDBusConnection(QString());
}

void SessionBus::lost() {
    disconnectNow();
    search_.start();
    changed_();
}

void SessionBus::lookForAnother() {
    if (!isAnotherListening()) {
        return;
    }
    connectNow();
    if (connection_.isConnected()) {
        changed_();
    }
}

/// Where the bus was, another user could have come to listen, and what comes from a bus is obeyed.
bool SessionBus::isAnotherListening() const {
    const auto socket = posix::connectTo(socketOf(address_));
    return socket && posix::peerOf(*socket) == user_ && isAnswered(*socket);
}

} // namespace corvane::freedesktop
