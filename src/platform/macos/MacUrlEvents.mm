#import "platform/macos/MacUrlEvents.h"

#import "platform/macos/Text.h"

#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>

#include <utility>
#include <vector>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

@implementation MacUrlEvents {
    std::function<void(const std::string &)> _receiver;
    std::vector<std::string> _early;
}

- (instancetype)init {
    self = [super init];
    if (self != nil) {
        [NSAppleEventManager.sharedAppleEventManager setEventHandler:self
                                                         andSelector:@selector(handleEvent:
                                                                                 withReply:)
                                                       forEventClass:kInternetEventClass
                                                          andEventID:kAEGetURL];
    }
    return self;
}

- (void)listen:(std::function<void(const std::string &)>)receiver {
    _receiver = std::move(receiver);
    for (const std::string &url : std::exchange(_early, {})) {
        _receiver(url);
    }
}

- (void)end {
    [NSAppleEventManager.sharedAppleEventManager removeEventHandlerForEventClass:kInternetEventClass
                                                                      andEventID:kAEGetURL];
}

- (void)handleEvent:(NSAppleEventDescriptor *)event withReply:(NSAppleEventDescriptor *)reply {
    NSString *text = [event paramDescriptorForKeyword:keyDirectObject].stringValue;
    if (text == nil) {
        return;
    }
    if (_receiver) {
        _receiver(corvane::macos::utf8(text));
    } else {
        _early.push_back(corvane::macos::utf8(text));
    }
}

@end
