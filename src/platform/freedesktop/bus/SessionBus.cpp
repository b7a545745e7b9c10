#include "platform/freedesktop/bus/SessionBus.h"

#include "platform/linux/environment/EnvironmentVariable.h"
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

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds reconnectInterval{3};

constexpr const char *addressVariable = "DBUS_SESSION_BUS_ADDRESS";
/// libdbus knows no such transport and fails to connect, at once and without launching a bus.
constexpr const char *noBus = "disabled:";

/// Qt keeps connections by name, lost ones included.
QString nextConnectionName() {
    static int connections = 0;
    return u"session-bus-%1"_s.arg(++connections);
}

/// The socket of an address such as "unix:path=/run/user/1000/bus,guid=..."; empty for a bus that
/// listens elsewhere than in the file system.
std::filesystem::path socketOf(const std::string &address) {
    const QString first = QString::fromStdString(address).section(u';', 0, 0);
    const QString transport = u"unix:"_s;
    if (!first.startsWith(transport)) {
        return {};
    }
    const QString key = u"path="_s;
    for (const QString &part : first.mid(transport.size()).split(u',')) {
        if (part.startsWith(key)) {
            return QByteArray::fromPercentEncoding(part.mid(key.size()).toUtf8()).toStdString();
        }
    }
    return {};
}

/// Whether a bus accepts the first line of the D-Bus authentication within a short timeout. Qt
/// would block the main thread on a socket that accepts connections and never replies.
bool authenticates(const posix::FileDescriptor &connection) {
    constexpr std::chrono::milliseconds timeout{100};
    const std::string user = QByteArray::number(geteuid()).toHex().toStdString();
    posix::sendSome(connection, std::string(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
    pollfd reply{.fd = connection.get(), .events = POLLIN, .revents = 0};
    std::array<char, 64> bytes{};
    return poll(&reply, 1, static_cast<int>(timeout.count())) == 1 &&
           read(connection.get(), bytes.data(), bytes.size()) > 0 &&
           std::string_view(bytes.data(), bytes.size()).starts_with("OK");
}

} // namespace

std::string sessionBusAddress() {
    const std::string address = linux::environmentVariable(addressVariable);
    if (address == noBus) {
        return {};
    }
    const auto runtime = linux::runtimeDirectory();
    return address.empty() && runtime ? "unix:path=" + (*runtime / "bus").string() : address;
}

void preventBusLaunch() {
    const std::string address = sessionBusAddress();
    // NOLINTNEXTLINE(concurrency-mt-unsafe)
    setenv(addressVariable, address.empty() ? noBus : address.c_str(), 1);
}

void surviveLostBuses() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe)
    setenv("DBUS_FATAL_WARNINGS", "0", 1);
}

SessionBus::SessionBus(std::function<void()> changed, std::string address, uid_t user)
    : changed_(std::move(changed)),
      address_(std::move(address)),
      user_(user) {
    reconnectTimer_.setInterval(reconnectInterval);
    connect(&reconnectTimer_, &QTimer::timeout, this, &SessionBus::reconnect);
    connectToBus();
}

SessionBus::~SessionBus() { disconnectFromBus(); }

void SessionBus::connectToBus() {
    if (address_.empty()) {
        return;
    }
    connection_ =
        QDBusConnection::connectToBus(QString::fromStdString(address_), nextConnectionName());
    if (!connection_.isConnected()) {
        disconnectFromBus();
        reconnectTimer_.start();
        return;
    }
    reconnectTimer_.stop();
    connection_.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                        u"Disconnected"_s, this, SLOT(handleDisconnect()));
}

void SessionBus::disconnectFromBus() {
    QDBusConnection::disconnectFromBus(connection_.name());
    connection_ = QDBusConnection(QString());
}

void SessionBus::handleDisconnect() {
    disconnectFromBus();
    reconnectTimer_.start();
    changed_();
}

void SessionBus::reconnect() {
    if (!isBusListening()) {
        return;
    }
    connectToBus();
    if (connection_.isConnected()) {
        changed_();
    }
}

/// Another user may have taken the path of a bus that is gone, and what a bus delivers is trusted.
bool SessionBus::isBusListening() const {
    const auto socket = posix::connectTo(socketOf(address_));
    return socket && posix::peerOf(*socket) == user_ && authenticates(*socket);
}

} // namespace corvane::freedesktop
