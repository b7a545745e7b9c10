#import "platform/macos/app/Localisation.h"

#import "platform/macos/support/Text.h"

#import <Foundation/Foundation.h>

namespace corvane::macos {

std::string Localisation::text(std::string_view english) const {
    @autoreleasepool {
        NSString *key = systemText(english);
        return utf8([NSBundle.mainBundle localizedStringForKey:key value:key table:nil]);
    }
}

} // namespace corvane::macos
