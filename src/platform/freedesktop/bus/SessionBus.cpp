#include "platform/freedesktop/bus/SessionBus.h"

#include "platform/linux/environment/EnvironmentVariable.h"
#include "platform/linux/environment/UserDirectories.h"

#include <chrono>
#include <cstdlib>
#include <utility>

namespace corvane::freedesktop {

namespace {

constexpr std::chrono::seconds reconnectInterval{3};

constexpr const char *addressVariable = "DBUS_SESSION_BUS_ADDRESS";
/// libdbus knows no such transport and fails to connect, at once and without launching a bus.
constexpr const char *noBus = "disabled:";

} // namespace

std::string sessionBusAddress() {
    const std::string address = linux::environmentVariable(addressVariable);
    if (address == noBus) {
        return {};
    }
    const auto runtime = linux::runtimeDirectory();
    return address.empty() && runtime ? "unix:path=" + (*runtime / "bus").string() : address;
}

std::string systemBusAddress() {
    const std::string address = linux::environmentVariable("DBUS_SYSTEM_BUS_ADDRESS");
    return address.empty() ? "unix:path=/run/dbus/system_bus_socket" : address;
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
      user_(user),
      connection_(std::make_unique<BusConnection>(
          address_, BusConnection::Listener{.lost = [this] { handleLoss(); }})) {
    reconnectTimer_.setInterval(reconnectInterval);
    QObject::connect(&reconnectTimer_, &QTimer::timeout, &reconnectTimer_, [this] { reconnect(); });
    if (!connection_->isOpen() && !address_.empty()) {
        reconnectTimer_.start();
    }
}

/// What is registered with the lost connection ends in `changed_`.
void SessionBus::handleLoss() {
    if (attempt_) {
        attempt_.reset();
        return;
    }
    const auto lost = std::exchange(connection_, std::make_unique<BusConnection>());
    reconnectTimer_.start();
    changed_();
}

/// Another user may have taken the path of a bus that is gone, and what a bus delivers is trusted.
void SessionBus::reconnect() {
    attempt_ = std::make_unique<BusConnection>(
        address_, BusConnection::Listener{.connected = [this] { takeOver(); },
                                          .lost = [this] { handleLoss(); }});
    if (attempt_->busUser() != user_) {
        attempt_.reset();
    }
}

void SessionBus::takeOver() {
    reconnectTimer_.stop();
    const auto none = std::exchange(connection_, std::move(attempt_));
    changed_();
}

} // namespace corvane::freedesktop
