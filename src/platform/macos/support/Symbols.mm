#import "platform/macos/support/Symbols.h"

#import "platform/macos/support/Text.h"

namespace corvane::macos {

NSFontWeight systemWeight(FontWeight weight) {
    switch (weight) {
    case FontWeight::regular:
        return NSFontWeightRegular;
    case FontWeight::medium:
        return NSFontWeightMedium;
    case FontWeight::semibold:
        return NSFontWeightSemibold;
    case FontWeight::bold:
        return NSFontWeightBold;
    }
}

NSImage *symbolImage(const Symbol &symbol) {
    NSString *description = symbol.description.empty() ? nil : systemText(symbol.description);
    NSImage *image = [NSImage imageWithSystemSymbolName:systemText(symbol.name)
                               accessibilityDescription:description];
    if (symbol.pointSize <= 0) {
        return image;
    }
    return [image
        imageWithSymbolConfiguration:[NSImageSymbolConfiguration
                                         configurationWithPointSize:symbol.pointSize
                                                             weight:systemWeight(symbol.weight)]];
}

NSImage *tintedCopy(NSImage *image, NSColor *colour) {
    const NSRect whole = NSMakeRect(0, 0, image.size.width, image.size.height);
    NSImage *copy = [[NSImage alloc] initWithSize:whole.size];
    [copy lockFocus];
    [image drawInRect:whole
             fromRect:NSZeroRect
            operation:NSCompositingOperationSourceOver
             fraction:1.0];
    [colour setFill];
    NSRectFillUsingOperation(whole, NSCompositingOperationSourceAtop);
    [copy unlockFocus];
    return copy;
}

} // namespace corvane::macos
