#import "platform/macos/hotkey/HotKeys.h"

#import "platform/macos/hotkey/HotKeyEvents.h"
#include "platform/macos/logic/HeldBackPresses.h"

#import <Carbon/Carbon.h>

#include <optional>
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

class CarbonHotKey : public platform::RegisteredHotKey {
  public:
    explicit CarbonHotKey(EventHotKeyRef hotKey) : hotKey_(hotKey) {}
    CarbonHotKey(const CarbonHotKey &) = delete;
    CarbonHotKey &operator=(const CarbonHotKey &) = delete;
    ~CarbonHotKey() override { UnregisterEventHotKey(hotKey_); }

    bool isHeard() const override { return true; }

  private:
    EventHotKeyRef hotKey_;
};

/// By the place on a US keyboard, whatever the layout; only for the letter that the program uses.
std::optional<UInt32> keyCodeOf(char letter) {
    return letter == 'Y' ? std::optional<UInt32>(kVK_ANSI_Y) : std::nullopt;
}

UInt32 modifiersOf(const HotKey &hotKey) {
    return (hotKey.command ? UInt32{cmdKey} : 0) | (hotKey.shift ? UInt32{shiftKey} : 0);
}

} // namespace

std::string hotKeyText(const HotKey &hotKey) {
    return std::string(hotKey.shift ? "⇧" : "") + (hotKey.command ? "⌘" : "") + hotKey.letter;
}

std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
HotKeys::installHandler(std::function<void()> pressed) {
    auto handler = std::make_unique<HotKeyHandler>(std::move(pressed));
    if (const OSStatus status = handler->install(); status != noErr) {
        return std::unexpected(status);
    }
    return handler;
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
HotKeys::registerHotKey(const HotKey &hotKey) {
    const auto keyCode = keyCodeOf(hotKey.letter);
    if (!keyCode) {
        return std::unexpected(paramErr);
    }
    const EventHotKeyID identifier{.signature = 'CRVN', .id = 1};
    EventHotKeyRef reference = nullptr;
    const OSStatus status = RegisterEventHotKey(*keyCode, modifiersOf(hotKey), identifier,
                                                GetApplicationEventTarget(), 0, &reference);
    if (status != noErr) {
        return std::unexpected(status);
    }
    return std::make_unique<CarbonHotKey>(reference);
}

} // namespace corvane::macos
