#import "platform/macos/windows/Screens.h"

#import "platform/macos/support/Geometry.h"

#import <AppKit/AppKit.h>

namespace corvane::macos {

std::vector<platform::Screen> Screens::screens() const {
    std::vector<platform::Screen> screens;
    for (NSScreen *screen in NSScreen.screens) {
        screens.push_back({.frame = portableRectangle(screen.frame)});
    }
    return screens;
}

} // namespace corvane::macos
