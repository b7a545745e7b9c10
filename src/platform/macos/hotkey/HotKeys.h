#pragma once

#include "platform/HotKeys.h"

#include <string>

namespace corvane::macos {

/// A hot key as the system writes it: "⇧⌘Y".
std::string hotKeyText(const HotKey &hotKey);

/// Hot keys of the Carbon Event Manager, which reach this program whichever one is in front.
class HotKeys : public platform::HotKeys {
  public:
    std::string_view mechanism() const override { return "Carbon"; }
    std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
    installHandler(std::function<void()> pressed) override;
    std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
    registerHotKey(const HotKey &hotKey) override;
    /// No program can keep a hot key from the system.
    void setUrgent(bool /*isUrgent*/) override {}
};

} // namespace corvane::macos
