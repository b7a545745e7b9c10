#pragma once

#include "presentation/HotKey.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <string_view>

namespace corvane::platform {

/// Holds a hot key or its handler; destroying it gives it back.
class HotKeyReference {
  public:
    virtual ~HotKeyReference() = default;
};

/// A registered hot key.
class RegisteredHotKey : public HotKeyReference {
  public:
    /// Whether a press would be noticed now; a change of the keyboard may have taken the key away.
    virtual bool isHeard() const = 0;
};

/// The status of a refused registration, as the system numbers it.
using HotKeyStatus = std::int32_t;

/// System-wide keyboard shortcuts. Main thread.
class HotKeys {
  public:
    virtual ~HotKeys() = default;

    /// The facility's name for log lines.
    virtual std::string_view mechanism() const = 0;

    /// Calls `pressed` on the main thread, once for each press of the registered hot key however
    /// long it is held, until the reference is destroyed.
    virtual std::expected<std::unique_ptr<HotKeyReference>, HotKeyStatus>
    installHandler(std::function<void()> pressed) = 0;

    /// Fails when another program owns the combination or the keyboard has no such key.
    virtual std::expected<std::unique_ptr<RegisteredHotKey>, HotKeyStatus>
    registerHotKey(const HotKey &hotKey) = 0;

    /// While urgent, a press is noticed also where another program has the keyboard to itself, as
    /// far as the system allows.
    virtual void setUrgent(bool isUrgent) = 0;
};

} // namespace corvane::platform
