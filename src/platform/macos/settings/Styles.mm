#import "platform/macos/settings/Styles.h"

#import "platform/macos/support/Colours.h"
#import "platform/macos/support/Symbols.h"

namespace corvane::macos {

namespace {

NSFont *roleFont(const Font &font) {
    switch (font.role) {
    case FontRole::body:
        return [NSFont preferredFontForTextStyle:NSFontTextStyleBody options:@{}];
    case FontRole::callout:
        return [NSFont preferredFontForTextStyle:NSFontTextStyleCallout options:@{}];
    case FontRole::caption2:
        return [NSFont preferredFontForTextStyle:NSFontTextStyleCaption2 options:@{}];
    case FontRole::headline:
        return [NSFont preferredFontForTextStyle:NSFontTextStyleHeadline options:@{}];
    case FontRole::title:
        return [NSFont preferredFontForTextStyle:NSFontTextStyleTitle1 options:@{}];
    case FontRole::system:
        return [NSFont systemFontOfSize:font.size];
    }
}

NSFontWeight weight(const Font &font) {
    if (font.weight) {
        return systemWeight(*font.weight);
    }
    return font.role == FontRole::headline ? NSFontWeightSemibold : NSFontWeightRegular;
}

NSColor *textColour(HierarchicalStyle style) {
    switch (style) {
    case HierarchicalStyle::primary:
        return NSColor.labelColor;
    case HierarchicalStyle::secondary:
        return NSColor.secondaryLabelColor;
    case HierarchicalStyle::tertiary:
        return NSColor.tertiaryLabelColor;
    case HierarchicalStyle::quaternary:
        return NSColor.quaternaryLabelColor;
    }
}

NSColor *fillColour(HierarchicalStyle style) {
    if (style == HierarchicalStyle::quaternary) {
        if (@available(macOS 14.0, *)) {
            return NSColor.quaternarySystemFillColor;
        }
    }
    return textColour(style);
}

} // namespace

NSFont *systemFont(const Font &font) {
    NSFont *base = roleFont(font);
    if (font.isMonospaced) {
        return [NSFont monospacedSystemFontOfSize:base.pointSize weight:weight(font)];
    }
    return font.weight ? [NSFont systemFontOfSize:base.pointSize weight:weight(font)] : base;
}

NSImageSymbolConfiguration *symbolConfiguration(const Font &font) {
    return [NSImageSymbolConfiguration configurationWithPointSize:roleFont(font).pointSize
                                                           weight:weight(font)];
}

NSColor *foregroundColour(const std::optional<ShapeStyle> &style, NSColor *ordinary) {
    if (!style) {
        return ordinary;
    }
    const auto *colour = std::get_if<Colour>(&*style);
    return colour != nullptr ? systemColour(*colour)
                             : textColour(std::get<HierarchicalStyle>(*style));
}

NSColor *backgroundColour(const ShapeStyle &style) {
    const auto *colour = std::get_if<Colour>(&style);
    return colour != nullptr ? systemColour(*colour)
                             : fillColour(std::get<HierarchicalStyle>(style));
}

} // namespace corvane::macos
