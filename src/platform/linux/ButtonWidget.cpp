#include "platform/linux/ButtonWidget.h"

#include "platform/linux/DisplayText.h"
#include "platform/linux/SymbolImages.h"
#include "platform/linux/ViewStyling.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>

namespace corvane::x11 {

namespace {

constexpr int leastProminentWidth = 76;

} // namespace

ButtonWidget::ButtonWidget(SymbolImages &symbols) : symbols_(symbols) {
    setAutoDefault(false);
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
    setText(withoutMnemonic(title));
    setAccessibleName(view_.accessibilityLabel.empty()
                          ? title
                          : QString::fromStdString(view_.accessibilityLabel));
    setEnabled(button().isEnabled);
    setFont(viewFont({.role = isSmall ? FontRole::callout : FontRole::body}));
    setPalette(colours());
    setIcon(button().symbol ? symbols_.icon(button().symbol->name, palette(), QPalette::ButtonText,
                                            QPalette::ButtonText)
                            : QIcon());
    updateGeometry();
}

/// A prominent button is filled with the colour that stands for what is chosen.
QPalette ButtonWidget::colours() const {
    QPalette colours = QApplication::palette(this);
    if (button().style == ButtonStyle::borderedProminent) {
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            colours.setColor(group, QPalette::Button,
                             colours.color(QPalette::Active, QPalette::Highlight));
            colours.setColor(group, QPalette::ButtonText,
                             colours.color(QPalette::Active, QPalette::HighlightedText));
        }
    }
    return colours;
}

QSize ButtonWidget::sizeHint() const {
    QSize size = QPushButton::sizeHint();
    if (button().style == ButtonStyle::borderedProminent) {
        size.setWidth(std::max(size.width(), leastProminentWidth));
    }
    return size;
}

bool ButtonWidget::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange ||
        event->type() == QEvent::ApplicationPaletteChange) {
        refresh();
    }
    return QPushButton::event(event);
}

} // namespace corvane::x11
