#include "platform/qt/controls/ViewStyling.h"

#include "platform/drawing/QtColour.h"

#include <QApplication>
#include <QFontDatabase>

#include <algorithm>

namespace corvane::qt {

namespace {

/// Relative to each other.
constexpr double bodySize = 13;
constexpr double calloutSize = 12;
constexpr double caption2Size = 10;
constexpr double titleSize = 22;

double sizeOf(FontRole role) {
    switch (role) {
    case FontRole::callout:
        return calloutSize;
    case FontRole::caption2:
        return caption2Size;
    case FontRole::title:
        return titleSize;
    case FontRole::body:
    case FontRole::headline:
    case FontRole::system:
        break;
    }
    return bodySize;
}

QFont::Weight qtWeight(FontWeight weight) {
    switch (weight) {
    case FontWeight::regular:
        break;
    case FontWeight::medium:
        return QFont::Medium;
    case FontWeight::semibold:
        return QFont::DemiBold;
    case FontWeight::bold:
        return QFont::Bold;
    }
    return QFont::Normal;
}

/// Opacities at which a text stays readable.
double textStrength(HierarchicalStyle level) {
    switch (level) {
    case HierarchicalStyle::primary:
        break;
    case HierarchicalStyle::secondary:
        return 0.74;
    case HierarchicalStyle::tertiary:
        return 0.62;
    case HierarchicalStyle::quaternary:
        return 0.5;
    }
    return 1;
}

/// The colour made dark or light enough to be read on the window.
QColor readable(const QColor &colour, const QPalette &palette) {
    constexpr float darkestLightness = 0.36F;
    constexpr float lightestLightness = 0.66F;
    float hue = 0;
    float saturation = 0;
    float lightness = 0;
    float alpha = 0;
    colour.getHslF(&hue, &saturation, &lightness, &alpha);
    lightness = isDark(palette) ? std::max(lightness, lightestLightness)
                                : std::min(lightness, darkestLightness);
    return QColor::fromHslF(hue, saturation, lightness, alpha);
}

/// A palette whose roles all follow the desktop, until they are set.
QPalette withoutRoles() {
    QPalette palette;
    palette.setResolveMask(0);
    return palette;
}

} // namespace

bool isDark(const QPalette &palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

QPalette indicatorPalette() {
    constexpr int windowLightness = 185;
    const QPalette desktop = QGuiApplication::palette();
    QPalette palette = withoutRoles();
    if (isDark(desktop)) {
        const QColor window = desktop.color(QPalette::Window);
        palette.setColor(QPalette::Window,
                         QColor::fromHsl(window.hslHue(), window.hslSaturation(), windowLightness));
    }
    return palette;
}

void usePlaceholderColourOfFields() {
    constexpr float strength = 0.5F;
    QColor colour = QApplication::palette().color(QPalette::Text);
    colour.setAlphaF(strength);
    QPalette palette = withoutRoles();
    palette.setColor(QPalette::PlaceholderText, colour);
    QApplication::setPalette(palette);
}

QColor faded(const QPalette &palette, double strength) {
    QColor colour = palette.color(QPalette::Active, QPalette::WindowText);
    colour.setAlphaF(static_cast<float>(strength));
    return colour;
}

QColor textColour(const std::optional<ShapeStyle> &style, const QPalette &palette) {
    if (!style) {
        return palette.color(QPalette::WindowText);
    }
    if (const auto *level = std::get_if<HierarchicalStyle>(&*style)) {
        return faded(palette, textStrength(*level));
    }
    return readable(drawing::qtColour(std::get<Colour>(*style)), palette);
}

QColor symbolColour(const std::optional<ShapeStyle> &style, const QPalette &palette) {
    const auto *colour = style ? std::get_if<Colour>(&*style) : nullptr;
    return colour ? drawing::qtColour(*colour) : textColour(style, palette);
}

QColor accentColour() { return drawing::qtColour({ColourName::systemBlue}).darker(118); }

QColor accentTextColour() { return Qt::white; }

QColor fillColour(const ShapeStyle &style, const QPalette &palette) {
    constexpr double fillStrength = 0.055;
    if (std::holds_alternative<HierarchicalStyle>(style)) {
        return faded(palette, fillStrength);
    }
    return drawing::qtColour(std::get<Colour>(style));
}

QFont viewFont(const Font &font) {
    const QFont base = QApplication::font();
    QFont result = font.isMonospaced ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : base;
    if (font.role == FontRole::system) {
        result.setPixelSize(static_cast<int>(font.size));
    } else {
        const double factor = sizeOf(font.role) / bodySize;
        if (base.pointSizeF() > 0) {
            result.setPointSizeF(base.pointSizeF() * factor);
        } else {
            result.setPixelSize(static_cast<int>(base.pixelSize() * factor));
        }
    }
    if (font.weight) {
        result.setWeight(qtWeight(*font.weight));
    } else if (font.role == FontRole::headline) {
        result.setWeight(QFont::DemiBold);
    }
    return result;
}

} // namespace corvane::qt
