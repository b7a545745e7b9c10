#include "platform/freedesktop/presence/LoginSignals.h"

#include "platform/linux/environment/EnvironmentVariable.h"

#include <chrono>
#include <utility>

#include <unistd.h>

namespace corvane::freedesktop {

namespace {

constexpr const char *service = "org.freedesktop.login1";
constexpr const char *sessionInterface = "org.freedesktop.login1.Session";
constexpr const char *propertiesInterface = "org.freedesktop.DBus.Properties";

/// A call for the object path of this program's session. Only a process inside the session's own
/// control group can be looked up by its number; a user service has the variable instead.
BusMessage sessionRequest(const BusConnection &bus) {
    const std::string session = linux::environmentVariable("XDG_SESSION_ID");
    BusMessage request =
        bus.newCall({service, "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                     session.empty() ? "GetSessionByPID" : "GetSession"});
    if (session.empty()) {
        request.write(static_cast<std::uint32_t>(getpid()));
    } else {
        request.write(session);
    }
    return request;
}

} // namespace

LoginSignals::LoginSignals(const std::string &busAddress, Callbacks callbacks)
    : callbacks_(std::move(callbacks)),
      bus_(busAddress, {}) {
    findSession();
}

void LoginSignals::findSession() {
    constexpr std::chrono::seconds timeout{25};
    request_ = bus_.call(sessionRequest(bus_), timeout, [this](BusMessage &reply) {
        if (!reply.isError() && reply.hasSignature("o")) {
            watchSession(reply.readPath());
        }
    });
}

void LoginSignals::watchSession(const std::string &path) {
    const auto watch = [&](const char *interface, const char *name, BusConnection::Handler handle) {
        signals_.push_back(bus_.subscribe(
            signalRule({.sender = service, .path = path, .interface = interface, .name = name}),
            std::move(handle)));
    };
    watch(sessionInterface, "Lock", [this](BusMessage &) { callbacks_.lockChanged(true); });
    watch(sessionInterface, "Unlock", [this](BusMessage &) { callbacks_.lockChanged(false); });
    watch(propertiesInterface, "PropertiesChanged",
          [this](BusMessage &signal) { propertiesChanged(signal); });
}

void LoginSignals::propertiesChanged(BusMessage &signal) {
    if (!signal.hasSignature("sa{sv}as") || signal.readText() != sessionInterface) {
        return;
    }
    signal.readArray("{sv}", [&] {
        signal.readEntry("sv", [&] {
            const std::string name = signal.readText();
            if (name == "LockedHint") {
                signal.readVariant("b", [&] { callbacks_.lockChanged(signal.readBool()); });
            } else if (name == "Active") {
                signal.readVariant("b", [&] { callbacks_.activeChanged(signal.readBool()); });
            } else {
                signal.skip("v");
            }
        });
    });
}

} // namespace corvane::freedesktop
