#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/windowing/HotKeyHandlers.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/Keyboard.h"
#include "platform/x11/hotkey/RawKeys.h"

#include <utility>

namespace corvane::x11 {

/// Key grabs on the root window.
class HotKeys : public platform::HotKeys {
  public:
    /// The events outlive the hot keys; these outlive every reference.
    explicit HotKeys(XcbEvents &events);

    std::string_view mechanism() const override { return "X11"; }

    std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
    installHandler(std::function<void()> pressed) override {
        return handlers_.install(std::move(pressed));
    }

    /// A failure's status is the X error code: 10 where another program owns the combination, 2
    /// where the keyboard has no such key.
    std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
    registerHotKey(const HotKey &hotKey) override;

    /// Listens to the keys themselves while urgent, which no grab can hide.
    void setUrgent(bool isUrgent) override { rawKeys_.listen(isUrgent); }

  private:
    XcbEvents &events_;
    const KeyboardChanges keyboardChanges_;
    RawKeys rawKeys_;
    linux::HotKeyHandlers handlers_;
};

} // namespace corvane::x11
