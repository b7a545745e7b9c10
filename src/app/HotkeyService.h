#pragma once

#include "platform/HotKeys.h"

#include <functional>
#include <memory>

namespace corvane {

namespace platform {
class MainQueue;
}

/// Command+Shift+Y, with 'CRVN' for its signature.
inline constexpr platform::HotKey startStopKey{
    .keyCode = 16, .modifiers = 0x100 | 0x200, .signature = 0x4352564E, .id = 1};

/// The system-wide shortcut Command+Shift+Y. Main thread.
class HotkeyService {
  public:
    HotkeyService(platform::HotKeys &hotKeys, platform::MainQueue &mainQueue);
    ~HotkeyService();

    /// Calls `callback` in a later turn of the main thread for each press; replaces any earlier
    /// registration. Success and failure are logged.
    void registerHotkey(std::function<void()> callback);

    /// Whether a press would be noticed now.
    bool isRegistered() const;

    /// Tries a registration again that failed or was lost; logs nothing but success. Nothing where
    /// none was asked for or all is well.
    void retry();

    /// Asks for presses also where another program has the keyboard to itself.
    void setUrgent(bool isUrgent);

    /// Safe to call when nothing is registered.
    void unregister();

  private:
    platform::HotKeyStatus installHandler();
    platform::HotKeyStatus registerKey();

    void pressed();

    platform::HotKeys &hotKeys_;
    platform::MainQueue &mainQueue_;
    /// Shared with presses that are queued, so that none runs after `unregister`.
    std::shared_ptr<std::function<void()>> callback_;
    std::unique_ptr<platform::HotKeyReference> handler_;
    std::unique_ptr<platform::RegisteredHotKey> hotKey_;
};

} // namespace corvane
