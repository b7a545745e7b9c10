#include "platform/qt/controls/FieldWidgets.h"

#include "platform/qt/controls/ViewStyling.h"
#include "platform/views/NumberEditing.h"

#include <QFocusEvent>

#include <cmath>

namespace corvane::qt {

NumberFieldWidget::NumberFieldWidget() {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMinimumHeight(controlHeight);
    setTextMargins(fieldMargin, 0, fieldMargin, 0);
    connect(this, &QLineEdit::textEdited, this, &NumberFieldWidget::takeOver);
    showValue(field().value, Rendering::discardsTyping);
}

void NumberFieldWidget::render(const View &view, Rendering rendering) {
    const std::int64_t former = field().value;
    view_ = view;
    if (view.width) {
        setFixedWidth(static_cast<int>(std::lround(*view.width)));
    }
    setAccessibleName(QString::fromStdString(view.accessibilityLabel));
    showValue(former, rendering);
}

void NumberFieldWidget::takeOver(const QString &text) {
    if (const auto value = views::typedValue(text.toStdString(), field().value)) {
        field().changed(*value);
    }
}

void NumberFieldWidget::showValue(std::int64_t former, Rendering rendering) {
    const bool isEditing = rendering == Rendering::keepsTyping;
    if (const auto next =
            views::textToShow(former, field().value, text().toStdString(), isEditing)) {
        setText(QString::fromStdString(*next));
    }
}

void NumberFieldWidget::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    // Opening the field's context menu does not end the editing.
    if (event->reason() != Qt::PopupFocusReason) {
        showValue(field().value, Rendering::discardsTyping);
    }
}

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
