#import "platform/macos/app/DesktopReading.h"

#import "platform/macos/hotkey/HotKeys.h"

namespace corvane::macos {

DesktopFacts readDesktopFacts(const HotKey &hotKey) {
    return {.displayServer = DisplayServer::macos,
            .hotKey = HotKeyState::unknown,
            .hotKeyName = hotKeyText(hotKey),
            .statusArea = StatusArea::menuBar};
}

} // namespace corvane::macos
