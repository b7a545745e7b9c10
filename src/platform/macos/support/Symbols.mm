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
    return [NSImage imageWithSize:image.size
                          flipped:NO
                   drawingHandler:^BOOL(NSRect whole) {
                     [image drawInRect:whole];
                     [colour setFill];
                     NSRectFillUsingOperation(whole, NSCompositingOperationSourceAtop);
                     return YES;
                   }];
}

} // namespace corvane::macos
