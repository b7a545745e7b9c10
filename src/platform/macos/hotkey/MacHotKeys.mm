#import "platform/macos/hotkey/MacHotKeys.h"

#import <Carbon/Carbon.h>

#include <utility>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

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

class MacHotKeyHandler : public platform::HotKeyReference {
  public:
    explicit MacHotKeyHandler(EventHandlerRef handler) : handler_(handler) {}
    MacHotKeyHandler(const MacHotKeyHandler &) = delete;
    MacHotKeyHandler &operator=(const MacHotKeyHandler &) = delete;
    ~MacHotKeyHandler() override {
        RemoveEventHandler(handler_);
        pressedCallback() = nullptr;
    }

  private:
    EventHandlerRef handler_;
};

class MacHotKey : public platform::RegisteredHotKey {
  public:
    explicit MacHotKey(EventHotKeyRef hotKey) : hotKey_(hotKey) {}
    MacHotKey(const MacHotKey &) = delete;
    MacHotKey &operator=(const MacHotKey &) = delete;
    ~MacHotKey() override { UnregisterEventHotKey(hotKey_); }

    bool isHeard() const override { return true; }

  private:
    EventHotKeyRef hotKey_;
};

} // namespace

std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
MacHotKeys::installHandler(std::function<void()> pressed) {
    const EventTypeSpec eventType{kEventClassKeyboard, kEventHotKeyPressed};
    EventHandlerRef handler = nullptr;
    const OSStatus status = InstallEventHandler(GetApplicationEventTarget(), hotKeyPressed, 1,
                                                &eventType, nullptr, &handler);
    if (status != noErr) {
        return std::unexpected(status);
    }
    pressedCallback() = std::move(pressed);
    return std::make_unique<MacHotKeyHandler>(handler);
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
MacHotKeys::registerHotKey(const platform::HotKey &hotKey) {
    const EventHotKeyID identifier{.signature = hotKey.signature, .id = hotKey.id};
    EventHotKeyRef reference = nullptr;
    const OSStatus status = RegisterEventHotKey(hotKey.keyCode, hotKey.modifiers, identifier,
                                                GetApplicationEventTarget(), 0, &reference);
    if (status != noErr) {
        return std::unexpected(status);
    }
    return std::make_unique<MacHotKey>(reference);
}

} // namespace corvane::macos
