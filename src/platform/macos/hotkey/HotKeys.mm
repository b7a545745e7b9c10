#import "platform/macos/hotkey/HotKeys.h"

#import <Carbon/Carbon.h>

#include <utility>

namespace corvane::macos {

namespace {

/// What a press runs; the process has one application event target and one handler on it.
std::function<void()> &pressedCallback() {
    static std::function<void()> callback;
    return callback;
}

OSStatus hotKeyPressed(EventHandlerCallRef /*next*/, EventRef /*event*/, void * /*userData*/) {
    // A copy: the callback may remove its own handler.
    if (const auto callback = pressedCallback()) {
        callback();
    }
    return noErr;
}

class HotKeyHandler : public platform::HotKeyReference {
  public:
    explicit HotKeyHandler(EventHandlerRef handler) : handler_(handler) {}
    HotKeyHandler(const HotKeyHandler &) = delete;
    HotKeyHandler &operator=(const HotKeyHandler &) = delete;
    ~HotKeyHandler() override {
        RemoveEventHandler(handler_);
        pressedCallback() = nullptr;
    }

  private:
    EventHandlerRef handler_;
};

class HotKey : public platform::RegisteredHotKey {
  public:
    explicit HotKey(EventHotKeyRef hotKey) : hotKey_(hotKey) {}
    HotKey(const HotKey &) = delete;
    HotKey &operator=(const HotKey &) = delete;
    ~HotKey() override { UnregisterEventHotKey(hotKey_); }

    bool isHeard() const override { return true; }

  private:
    EventHotKeyRef hotKey_;
};

} // namespace

std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
HotKeys::installHandler(std::function<void()> pressed) {
    const EventTypeSpec eventType{kEventClassKeyboard, kEventHotKeyPressed};
    EventHandlerRef handler = nullptr;
    const OSStatus status = InstallEventHandler(GetApplicationEventTarget(), hotKeyPressed, 1,
                                                &eventType, nullptr, &handler);
    if (status != noErr) {
        return std::unexpected(status);
    }
    pressedCallback() = std::move(pressed);
    return std::make_unique<HotKeyHandler>(handler);
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
HotKeys::registerHotKey(const platform::HotKey &hotKey) {
    const EventHotKeyID identifier{.signature = hotKey.signature, .id = hotKey.id};
    EventHotKeyRef reference = nullptr;
    const OSStatus status = RegisterEventHotKey(hotKey.keyCode, hotKey.modifiers, identifier,
                                                GetApplicationEventTarget(), 0, &reference);
    if (status != noErr) {
        return std::unexpected(status);
    }
    return std::make_unique<HotKey>(reference);
}

} // namespace corvane::macos
