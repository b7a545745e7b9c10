#pragma once

#include "platform/HotKeys.h"
#include "support/OneThread.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane::testing {

/// Hot keys without a keyboard. Main thread.
class RecordingHotKeys : public platform::HotKeys {
  public:
    std::string_view mechanism() const override { return mechanismName; }
    std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
    installHandler(std::function<void()> pressed) override;
    std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
    registerHotKey(const HotKey &hotKey) override;
    void setUrgent(bool isNowUrgent) override { isUrgent = isNowUrgent; }

    std::string mechanismName = "Carbon";
    /// With what status the next attempts fail; nothing for success.
    std::optional<platform::HotKeyStatus> installFailure;
    std::optional<platform::HotKeyStatus> registerFailure;
    /// Whether a hot key is given to everybody who wants it, whatever `registerFailure` says.
    bool isNeverRefused = false;

    std::size_t handlerCount() const { return handlers_.size(); }
    /// Those registered now.
    std::vector<HotKey> registered() const;
    /// How often a registration was tried.
    int registrations = 0;
    /// Whether a registered key could be noticed by its owner.
    bool isHeard = true;
    bool isUrgent = false;

    /// The most that were there at one time.
    std::size_t mostHotKeys = 0;
    std::size_t mostHandlers = 0;

    /// Called within each attempt to register.
    std::function<void()> whileRegistering;
    /// Called when a hot key or a handler is given back, with "hot key" or "handler".
    std::function<void(const std::string &what)> whileGivingBack;

    /// Presses the registered hot key; without one or without a handler nothing happens.
    void press();

    /// A press that the system has begun to deliver and goes on delivering whatever is given back
    /// meanwhile.
    std::function<void()> pressUnderWay() const;

  private:
    class HandlerReference;
    class KeyReference;

    const OneThread mainThread_{"hot keys"};
    void givenBack(const std::string &what) const;

    std::map<int, std::function<void()>> handlers_;
    std::map<int, HotKey> hotKeys_;
    int nextNumber_ = 0;
};

} // namespace corvane::testing
