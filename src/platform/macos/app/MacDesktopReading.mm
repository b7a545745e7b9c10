#import "platform/macos/app/MacDesktopReading.h"

#import "platform/macos/hotkey/MacHotKeys.h"
#include "presentation/KeyHint.h"

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

DesktopFacts readDesktopFacts(const platform::HotKey &hotKey) {
    MacHotKeys hotKeys;
    return {.displayServer = DisplayServer::macos,
            .hotKey = hotKeys.registerHotKey(hotKey) ? HotKeyState::free : HotKeyState::taken,
            .hotKeyName = startStopKeyHint,
            .statusArea = StatusArea::menuBar};
}

} // namespace corvane::macos
