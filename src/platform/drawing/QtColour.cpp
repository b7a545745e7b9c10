#include "platform/drawing/QtColour.h"

namespace corvane::drawing {

namespace {

QColor shade(ColourName name) {
    switch (name) {
    case ColourName::clear:
        return Qt::transparent;
    case ColourName::black:
        return Qt::black;
    case ColourName::white:
        return Qt::white;
    case ColourName::systemBlue:
        return {0x2f, 0x7c, 0xf6};
    case ColourName::systemGreen:
        return {0x32, 0xc7, 0x5a};
    case ColourName::systemOrange:
        return {0xff, 0x95, 0x1f};
    case ColourName::systemPink:
        return {0xff, 0x3b, 0x6b};
    }
    return {};
}

} // namespace

QColor qtColour(const Colour &colour) {
    auto shown = shade(colour.name);
    shown.setAlphaF(shown.alphaF() * static_cast<float>(colour.alpha));
    return shown;
}

} // namespace corvane::drawing
