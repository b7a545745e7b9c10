#import "platform/macos/app/Workspace.h"

#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

namespace corvane::macos {

void Workspace::openUrl(const std::string &url) {
    if (NSURL *address = [NSURL URLWithString:systemText(url)]) {
        [NSWorkspace.sharedWorkspace openURL:address];
    }
}

} // namespace corvane::macos
