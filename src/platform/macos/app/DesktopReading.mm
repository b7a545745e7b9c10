#import "platform/macos/app/DesktopReading.h"

#include "presentation/KeyHint.h"

namespace corvane::macos {

DesktopFacts readDesktopFacts() {
    return {.displayServer = DisplayServer::macos,
            .hotKey = HotKeyState::unknown,
            .hotKeyName = startStopKeyHint,
            .statusArea = StatusArea::menuBar};
}

} // namespace corvane::macos
