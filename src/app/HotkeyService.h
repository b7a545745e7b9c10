#pragma once

#include "platform/HotKeys.h"

#include <functional>
#include <memory>

namespace corvane {

namespace platform {
class MainQueue;
}

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

    /// Safe to call when nothing is registered.
    void unregister();

  private:
    void pressed();

    platform::HotKeys &hotKeys_;
    platform::MainQueue &mainQueue_;
    /// Shared with presses that are queued, so that none runs after `unregister`.
    std::shared_ptr<std::function<void()>> callback_;
    std::unique_ptr<platform::HotKeyReference> handler_;
    std::unique_ptr<platform::RegisteredHotKey> hotKey_;
};

} // namespace corvane
