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

    /// Whether the last registration succeeded and holds.
    bool isRegistered() const { return hotKey_ != nullptr; }

    /// Safe to call when nothing is registered.
    void unregister();

  private:
    void pressed();

    platform::HotKeys &hotKeys_;
    platform::MainQueue &mainQueue_;
    /// Shared with presses that are queued, so that none runs after `unregister`.
    std::shared_ptr<std::function<void()>> callback_;
    std::unique_ptr<platform::HotKeyReference> handler_;
    std::unique_ptr<platform::HotKeyReference> hotKey_;
};

} // namespace corvane
