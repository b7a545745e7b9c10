#import "platform/macos/support/Text.h"

namespace corvane::macos {

NSString *systemText(std::string_view text) {
    NSString *converted = [[NSString alloc] initWithBytes:text.data()
                                                   length:text.size()
                                                 encoding:NSUTF8StringEncoding];
    return converted == nil ? @"" : converted;
}

std::string utf8(NSString *text) {
    NSData *bytes = [text dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
    return {static_cast<const char *>(bytes.bytes), bytes.length};
}

} // namespace corvane::macos
