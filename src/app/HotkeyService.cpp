#include "app/HotkeyService.h"

#include "platform/HotKeys.h"
#include "platform/MainQueue.h"
#include "support/Log.h"

#include <cstdint>
#include <string>
#include <utility>

namespace corvane {

namespace {

constexpr std::uint32_t ansiY = 16;
constexpr std::uint32_t commandKey = 0x100;
constexpr std::uint32_t shiftKey = 0x200;
constexpr std::uint32_t signature = 0x4352564E; // 'CRVN'

constexpr platform::HotKey startStopKey{
    .keyCode = ansiY, .modifiers = commandKey | shiftKey, .signature = signature, .id = 1};

} // namespace

HotkeyService::HotkeyService(platform::HotKeys &hotKeys, platform::MainQueue &mainQueue)
    : hotKeys_(hotKeys),
      mainQueue_(mainQueue) {}

HotkeyService::~HotkeyService() = default;

void HotkeyService::registerHotkey(std::function<void()> callback) {
    unregister();
    callback_ = std::make_shared<std::function<void()>>(std::move(callback));
    const std::string mechanism(hotKeys_.mechanism());

    auto handler = hotKeys_.installHandler([this] { pressed(); });
    if (!handler) {
        log("Failed to install " + mechanism +
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
    log("Hotkey (Cmd+Shift+Y) registered via " + mechanism);
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
