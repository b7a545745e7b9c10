#import "platform/macos/hotkey/HotKeys.h"

#import "platform/macos/hotkey/HotKeyEvents.h"
#include "platform/macos/logic/HeldBackPresses.h"

#import <Carbon/Carbon.h>

#include <utility>

namespace corvane::macos {

namespace {

/// The handler of the process's one application event target.
class HotKeyHandler : public platform::HotKeyReference {
  public:
    explicit HotKeyHandler(std::function<void()> pressed) : pressed_(std::move(pressed)) {}
    HotKeyHandler(const HotKeyHandler &) = delete;
    HotKeyHandler &operator=(const HotKeyHandler &) = delete;
    ~HotKeyHandler() override {
        if (handler_ != nullptr) {
            RemoveEventHandler(handler_);
        }
    }

    OSStatus install() {
        const EventTypeSpec eventType{kEventClassKeyboard, kEventHotKeyPressed};
        return InstallEventHandler(GetApplicationEventTarget(), handle, 1, &eventType, this,
                                   &handler_);
    }

  private:
    static OSStatus handle(EventHandlerCallRef /*next*/, EventRef event, void *handler) {
        @autoreleasepool {
            if (!isPressOf(startStopHotKey, event)) {
                return eventNotHandledErr;
            }
            static_cast<HotKeyHandler *>(handler)->press(event);
            return noErr;
        }
    }

    void press(EventRef event) {
        using Time = HeldBackPresses::Time;
        if (heldBackPresses_.counts(Time(GetEventTime(event)), Time(GetCurrentEventTime()))) {
            // A copy: the callback may remove its own handler.
            const auto pressed = pressed_;
            pressed();
        }
    }

    const std::function<void()> pressed_;
    HeldBackPresses heldBackPresses_;
    EventHandlerRef handler_ = nullptr;
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
    auto handler = std::make_unique<HotKeyHandler>(std::move(pressed));
    if (const OSStatus status = handler->install(); status != noErr) {
        return std::unexpected(status);
    }
    return handler;
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
