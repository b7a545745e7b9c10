#include "platform/freedesktop/presence/ScreenSaverSignals.h"

#include <array>
#include <chrono>
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
      bus_([this] { handleBusChange(); }, std::move(busAddress)) {
    listen();
}

void ScreenSaverSignals::handleBusChange() {
    if (!std::exchange(lockers_, {}).empty()) {
        changed_(false);
    }
    listen();
}

void ScreenSaverSignals::listen() {
    signals_.clear();
    for (const char *interface : interfaces) {
        signals_.push_back(bus_.connection().subscribe(
            signalRule({.interface = interface, .name = "ActiveChanged"}),
            [this](BusMessage &signal) { handleSignal(signal); }));
    }
}

void ScreenSaverSignals::handleSignal(BusMessage &signal) {
    if (!signal.hasSignature("b")) {
        return;
    }
    const bool isLocked = signal.readBool();
    changed_(isLocked);
    if (isLocked) {
        watch(signal.sender());
    } else {
        lockers_.clear();
    }
}

/// A locker that crashes sends no signal, and it may have crashed before it is watched.
void ScreenSaverSignals::watch(const std::string &saver) {
    constexpr std::chrono::seconds timeout{25};
    BusConnection &bus = bus_.connection();
    BusMessage request = bus.newCall(busMethod("NameHasOwner"));
    request.write(saver);
    lockers_[saver] = {.ownerChange =
                           bus.subscribe(ownerChangeRule(saver),
                                         [this, saver](BusMessage &) { handleEnd(saver); }),
                       .request = bus.call(request, timeout, [this, saver](BusMessage &reply) {
                           if (!reply.isError() && reply.hasSignature("b") && !reply.readBool()) {
                               handleEnd(saver);
                           }
                       })};
}

/// The owner of a name that belongs to one connection changes only when that ends.
void ScreenSaverSignals::handleEnd(const std::string &saver) {
    // The name goes with the entry that is erased. NOLINTNEXTLINE(performance-unnecessary-copy-*)
    const std::string ended = saver;
    if (lockers_.erase(ended) > 0) {
        changed_(false);
    }
}

} // namespace corvane::freedesktop
