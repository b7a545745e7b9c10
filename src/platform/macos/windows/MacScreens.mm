#import "platform/macos/windows/MacScreens.h"

#import "platform/macos/support/Geometry.h"

#import <AppKit/AppKit.h>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

std::vector<platform::Screen> MacScreens::screens() const {
    std::vector<platform::Screen> screens;
    for (NSScreen *screen in NSScreen.screens) {
        screens.push_back({.frame = portableRectangle(screen.frame)});
    }
    return screens;
}

} // namespace corvane::macos
