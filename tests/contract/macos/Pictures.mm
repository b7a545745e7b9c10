#import "Pictures.h"

#import <Foundation/Foundation.h>
#import <QuartzCore/QuartzCore.h>

#include <cstdlib>

namespace corvane::contract {

void keepPicture(const std::string &name) {
    const char *folder = std::getenv("CORVANE_PICTURES"); // NOLINT(concurrency-mt-unsafe)
    if (folder == nullptr) {
        return;
    }
    [CATransaction flush];
    // Windows come to the screen while the run loop turns.
    constexpr CFTimeInterval untilShown = 0.5;
    CFRunLoopRunInMode(kCFRunLoopDefaultMode, untilShown, false);
    const std::string file = std::string(folder) + "/" + name + ".png";
    NSTask *task =
        [NSTask launchedTaskWithExecutableURL:[NSURL fileURLWithPath:@"/usr/sbin/screencapture"]
                                    arguments:@[ @"-x", @(file.c_str()) ]
                                        error:nil
                           terminationHandler:nil];
    [task waitUntilExit];
}

} // namespace corvane::contract
