#import "platform/macos/app/MacWorkspace.h"

#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

void MacWorkspace::openUrl(const std::string &url) {
    if (NSURL *address = [NSURL URLWithString:systemText(url)]) {
        [NSWorkspace.sharedWorkspace openURL:address];
    }
}

} // namespace corvane::macos
