#import "platform/macos/app/MacLocalisation.h"

#import "platform/macos/support/Text.h"

#import <Foundation/Foundation.h>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

std::string MacLocalisation::text(std::string_view english) const {
    @autoreleasepool {
        NSString *key = systemText(english);
        return utf8([NSBundle.mainBundle localizedStringForKey:key value:key table:nil]);
    }
}

} // namespace corvane::macos
