#include "platform/qt/controls/ButtonWidget.h"

#include "platform/drawing/DisplayText.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace corvane::qt {

namespace {

constexpr int leastWidth = 80;
constexpr int leastSmallWidth = 60;
constexpr int smallControlHeight = 24;
constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 3;
constexpr double cornerRadius = 6;

} // namespace

ButtonWidget::ButtonWidget(drawing::SymbolImages &symbols) : symbols_(symbols) {
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, [this] { button().action(); });
}

void ButtonWidget::render(const View &view, Rendering) {
    const bool isSame = view == view_;
    view_ = view;
    if (!isSame) {
        refresh();
    }
}

void ButtonWidget::refresh() {
    const QString title = QString::fromStdString(button().title);
    const bool isSmall = button().controlSize == ControlSize::small;
    setText(drawing::withoutMnemonic(title));
    setAccessibleName(view_.accessibilityLabel.empty()
                          ? title
                          : QString::fromStdString(view_.accessibilityLabel));
    setEnabled(button().isEnabled);
    setFont(viewFont({.role = isSmall ? FontRole::callout : FontRole::body}));
    const auto &symbol = button().symbol;
    setIcon(symbol
                ? symbols_.icon(symbol->name, palette(), QPalette::ButtonText, QPalette::ButtonText)
                : QIcon());
    updateGeometry();
}

QSize ButtonWidget::sizeHint() const {
    const bool isSmall = button().controlSize == ControlSize::small;
    const int icon = button().symbol ? iconSize().width() + 4 : 0;
    const int width = fontMetrics().horizontalAdvance(text()) + icon + 2 * horizontalPadding;
    return {std::max(width, isSmall ? leastSmallWidth : leastWidth),
            std::max(fontMetrics().height() + 2 * verticalPadding,
                     isSmall ? smallControlHeight : controlHeight)};
}

void ButtonWidget::paintEvent(QPaintEvent *event) {
    if (button().style == ButtonStyle::borderedProminent) {
        paintProminent();
    } else {
        QPushButton::paintEvent(event);
    }
}

/// Filled with the accent colour; no Qt style has such a button.
void ButtonWidget::paintProminent() {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill = isEnabled() ? accentColour() : faded(palette(), 0.1);
    if (isDown()) {
        fill = fill.darker(120);
    } else if (isEnabled() && underMouse()) {
        fill = fill.lighter(108);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    if (hasFocus()) {
        painter.setPen(QPen(accentTextColour(), 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), cornerRadius - 2,
                                cornerRadius - 2);
    }
    painter.setPen(isEnabled() ? accentTextColour() : faded(palette(), 0.45));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

bool ButtonWidget::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::PaletteChange) {
        refresh();
    }
    return QPushButton::event(event);
}

} // namespace corvane::qt
