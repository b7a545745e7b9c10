#include "platform/qt/controls/TextFieldWidget.h"

#include "platform/qt/controls/ViewStyling.h"

namespace corvane::qt {

TextFieldWidget::TextFieldWidget() {
    setMinimumHeight(controlHeight);
    setTextMargins(fieldMargin, 0, fieldMargin, 0);
    connect(this, &QLineEdit::textEdited, this,
            [this](const QString &text) { field().changed(text.toStdString()); });
}

void TextFieldWidget::render(const View &view, Rendering) {
    view_ = view;
    setAccessibleName(QString::fromStdString(view.accessibilityLabel));
    setPlaceholderText(QString::fromStdString(field().placeholder));
    const QString text = QString::fromStdString(field().text);
    if (this->text() != text) {
        setText(text);
    }
}

} // namespace corvane::qt
