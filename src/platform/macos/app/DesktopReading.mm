#import "platform/macos/app/DesktopReading.h"

#import "platform/macos/hotkey/HotKeys.h"
#include "presentation/KeyHint.h"

namespace corvane::macos {

DesktopFacts readDesktopFacts(const platform::HotKey &hotKey) {
    HotKeys hotKeys;
    return {.displayServer = DisplayServer::macos,
            .hotKey = hotKeys.registerHotKey(hotKey) ? HotKeyState::free : HotKeyState::taken,
            .hotKeyName = startStopKeyHint,
            .statusArea = StatusArea::menuBar};
}

} // namespace corvane::macos
