#include "app/HotkeyService.h"

#include "platform/MainQueue.h"
#include "support/Log.h"

#include <string>
#include <utility>

namespace corvane {

HotkeyService::HotkeyService(platform::HotKeys &hotKeys, platform::MainQueue &mainQueue)
    : hotKeys_(hotKeys),
      mainQueue_(mainQueue) {}

HotkeyService::~HotkeyService() = default;

void HotkeyService::registerHotkey(std::function<void()> callback) {
    unregister();
    callback_ = std::make_shared<std::function<void()>>(std::move(callback));
    if (const platform::HotKeyStatus status = installHandler(); status != 0) {
        log("Failed to install " + std::string(hotKeys_.mechanism()) +
            " event handler: " + std::to_string(status));
    } else if (const platform::HotKeyStatus refusal = registerKey(); refusal != 0) {
        log("Failed to register hotkey: " + std::to_string(refusal));
    }
}

bool HotkeyService::isRegistered() const { return handler_ && hotKey_ && hotKey_->isHeard(); }

void HotkeyService::retry() {
    if (!callback_ || isRegistered()) {
        return;
    }
    hotKey_.reset();
    if (handler_ || installHandler() == 0) {
        registerKey();
    }
}

void HotkeyService::setUrgent(bool isUrgent) { hotKeys_.setUrgent(isUrgent); }

/// 0 for success.
platform::HotKeyStatus HotkeyService::installHandler() {
    auto handler = hotKeys_.installHandler([this] { pressed(); });
    if (!handler) {
        return handler.error();
    }
    handler_ = std::move(*handler);
    return 0;
}

/// 0 for success.
platform::HotKeyStatus HotkeyService::registerKey() {
    auto hotKey = hotKeys_.registerHotKey(startStopKey);
    if (!hotKey) {
        return hotKey.error();
    }
    hotKey_ = std::move(*hotKey);
    log("Hotkey (Cmd+Shift+Y) registered via " + std::string(hotKeys_.mechanism()));
    return 0;
}

void HotkeyService::unregister() {
    hotKey_.reset();
    handler_.reset();
    callback_.reset();
}

void HotkeyService::pressed() {
    mainQueue_.post([held = std::weak_ptr(callback_)] {
        if (const auto callback = held.lock()) {
            (*callback)();
        }
    });
}

} // namespace corvane
