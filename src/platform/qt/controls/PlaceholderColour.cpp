#include "platform/qt/controls/PlaceholderColour.h"

#include <QApplication>
#include <QPalette>

namespace corvane::qt {

void usePlaceholderColourOfFields() {
    constexpr float strength = 0.5F;
    QColor colour = QApplication::palette().color(QPalette::Text);
    colour.setAlphaF(strength);
    // Only this role: the others go on following the desktop.
    QPalette palette;
    palette.setResolveMask(0);
    palette.setColor(QPalette::PlaceholderText, colour);
    QApplication::setPalette(palette);
}

} // namespace corvane::qt
