#import "platform/macos/hotkey/HotKeyEvents.h"

namespace corvane::macos {

bool isPressOf(const EventHotKeyID &hotKey, EventRef event) {
    EventHotKeyID pressed{};
    return GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                             sizeof(pressed), nullptr, &pressed) == noErr &&
           pressed.signature == hotKey.signature && pressed.id == hotKey.id;
}

} // namespace corvane::macos
