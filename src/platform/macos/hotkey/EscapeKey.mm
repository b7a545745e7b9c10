#import "platform/macos/hotkey/EscapeKey.h"

#import "platform/macos/hotkey/HotKeyEvents.h"

#include <utility>

namespace corvane::macos {

EscapeKey::EscapeKey(std::function<void()> pressed) : pressed_(std::move(pressed)) {
    const EventTypeSpec eventType{kEventClassKeyboard, kEventHotKeyPressed};
    InstallEventHandler(GetApplicationEventTarget(), handle, 1, &eventType, this, &handler_);
    RegisterEventHotKey(kVK_Escape, 0, escapeHotKey, GetApplicationEventTarget(), 0, &hotKey_);
}

EscapeKey::~EscapeKey() {
    if (hotKey_ != nullptr) {
        UnregisterEventHotKey(hotKey_);
    }
    if (handler_ != nullptr) {
        RemoveEventHandler(handler_);
    }
}

OSStatus EscapeKey::handle(EventHandlerCallRef /*next*/, EventRef event, void *escapeKey) {
    @autoreleasepool {
        if (!isPressOf(escapeHotKey, event)) {
            return eventNotHandledErr;
        }
        // A copy: the callback may destroy this object.
        const auto pressed = static_cast<EscapeKey *>(escapeKey)->pressed_;
        pressed();
        return noErr;
    }
}

} // namespace corvane::macos
