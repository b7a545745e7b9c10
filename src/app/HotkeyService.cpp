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
    auto handler = hotKeys_.installHandler([this] { pressed(); });
    if (!handler) {
        log("Failed to install " + std::string(hotKeys_.mechanism()) +
            " event handler: " + std::to_string(handler.error()));
        return;
    }
    handler_ = std::move(*handler);
    auto hotKey = hotKeys_.registerHotKey(startStopKey);
    if (!hotKey) {
        log("Failed to register hotkey: " + std::to_string(hotKey.error()));
        return;
    }
    hotKey_ = std::move(*hotKey);
    log("Hotkey (Cmd+Shift+Y) registered via " + std::string(hotKeys_.mechanism()));
}

bool HotkeyService::isRegistered() const { return hotKey_ && hotKey_->isHeard(); }

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
