#import "platform/macos/support/Colours.h"

namespace corvane::macos {

namespace {

NSColor *opaque(ColourName name) {
    switch (name) {
    case ColourName::clear:
        return NSColor.clearColor;
    case ColourName::black:
        return NSColor.blackColor;
    case ColourName::white:
        return NSColor.whiteColor;
    case ColourName::systemBlue:
        return NSColor.systemBlueColor;
    case ColourName::systemGreen:
        return NSColor.systemGreenColor;
    case ColourName::systemOrange:
        return NSColor.systemOrangeColor;
    case ColourName::systemPink:
        return NSColor.systemPinkColor;
    }
}

} // namespace

NSColor *systemColour(const Colour &colour) {
    NSColor *shade = opaque(colour.name);
    return colour.name == ColourName::clear || colour.alpha >= 1
               ? shade
               : [shade colorWithAlphaComponent:colour.alpha];
}

} // namespace corvane::macos
