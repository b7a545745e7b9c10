#include "platform/qt/settings/ToolbarButton.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QFocusEvent>
#include <QPainter>

#include <algorithm>

namespace corvane::qt {

namespace {

constexpr int iconSide = 24;
constexpr int gap = 3;
constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 6;
constexpr int leastWidth = 76;
constexpr double cornerRadius = 8;

} // namespace

ToolbarButton::ToolbarButton(const ToolbarItem &item, drawing::SymbolImages &symbols)
    : item_(item),
      symbols_(symbols) {
    const QString label = QString::fromStdString(item.label);
    setText(label);
    setAccessibleName(label);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ToolbarButton::setSelected(bool isSelected) {
    if (isSelected == isSelected_) {
        return;
    }
    isSelected_ = isSelected;
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
    update();
}

QFont ToolbarButton::labelFont() const { return viewFont({.role = FontRole::callout}); }

QSize ToolbarButton::sizeHint() const {
    const QFontMetrics metrics(labelFont());
    const int width = std::max(iconSide, metrics.horizontalAdvance(text()));
    return {std::max(leastWidth, width + 2 * horizontalPadding),
            iconSide + gap + metrics.height() + 2 * verticalPadding};
}

void ToolbarButton::focusInEvent(QFocusEvent *event) {
    showsFocus_ =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QAbstractButton::focusInEvent(event);
}

void ToolbarButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isPressed = isSelected_ || isDown();
    const bool hasFrame = hasFocus() && showsFocus_;
    painter.setBrush(faded(palette(), isPressed ? 0.1 : underMouse() ? 0.05 : 0));
    painter.setPen(hasFrame ? QPen(palette().color(QPalette::Highlight), 1.5) : Qt::NoPen);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    const QColor colour = isSelected_ ? textColour(Colour{ColourName::systemBlue}, palette())
                                      : textColour(HierarchicalStyle::secondary, palette());
    painter.drawPixmap((width() - iconSide) / 2, verticalPadding,
                       symbols_.pixmap(item_.image.name, colour, iconSide, devicePixelRatioF()));
    painter.setPen(colour);
    painter.setFont(labelFont());
    painter.drawText(rect().adjusted(0, verticalPadding + iconSide + gap, 0, 0),
                     Qt::AlignHCenter | Qt::AlignTop, text());
}

} // namespace corvane::qt
