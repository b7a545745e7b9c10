#include "platform/qt/controls/ToggleWidget.h"

#include "platform/drawing/DisplayText.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QEvent>

namespace corvane::qt {

ToggleWidget::ToggleWidget(drawing::SymbolImages &symbols) : symbols_(symbols) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QCheckBox::clicked, this, [this](bool isOn) {
        // The state follows the view alone.
        setChecked(toggle().isOn);
        toggle().changed(isOn);
    });
}

void ToggleWidget::render(const View &view, Rendering) {
    const bool isSame = view == view_;
    view_ = view;
    if (!isSame) {
        refresh();
    }
}

void ToggleWidget::refresh() {
    setPalette(indicatorPalette());
    const QString title = QString::fromStdString(toggle().title);
    setText(drawing::withoutMnemonic(title));
    setAccessibleName(title);
    setFont(viewFont(view_.font));
    const auto &symbol = toggle().symbol;
    setIcon(symbol
                ? symbols_.icon(symbol->name, palette(), QPalette::WindowText, QPalette::WindowText)
                : QIcon());
    setChecked(toggle().isOn);
}

bool ToggleWidget::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::PaletteChange) {
        refresh();
    }
    return QCheckBox::event(event);
}

} // namespace corvane::qt
