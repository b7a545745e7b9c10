#pragma once

#include "platform/freedesktop/bus/SessionBus.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace corvane::freedesktop {

/// The desktop's screen locker as it announces itself on the session bus. Main thread.
class ScreenSaverSignals {
  public:
    /// Calls `changed` when the screen is locked or unlocked. It counts as unlocked when the
    /// locker's process ends or the bus is lost.
    ScreenSaverSignals(std::string busAddress, std::function<void(bool isLocked)> changed);

  private:
    void listen();
    void handleBusChange();
    void handleSignal(BusMessage &signal);
    void watch(const std::string &saver);
    void handleEnd(const std::string &saver);

    const std::function<void(bool isLocked)> changed_;
    SessionBus bus_;
    std::vector<BusSlot> signals_;
    /// A saver that has locked the screen, and what is registered to notice its end.
    struct Locker {
        BusSlot ownerChange;
        BusSlot request;
    };
    std::map<std::string, Locker> lockers_;
};

} // namespace corvane::freedesktop
