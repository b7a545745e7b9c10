#include "platform/qt/controls/FieldWidgets.h"

#include "platform/qt/controls/ViewStyling.h"
#include "presentation/WholeNumber.h"

#include <QFocusEvent>

#include <cmath>

namespace corvane::qt {

NumberFieldWidget::NumberFieldWidget() {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMinimumHeight(controlHeight);
    setTextMargins(fieldMargin, 0, fieldMargin, 0);
    connect(this, &QLineEdit::textEdited, this, &NumberFieldWidget::takeOver);
    showValue();
}

void NumberFieldWidget::render(const View &view, Rendering rendering) {
    const std::int64_t former = field().value;
    view_ = view;
    if (view.width) {
        setFixedWidth(static_cast<int>(std::lround(*view.width)));
    }
    setAccessibleName(QString::fromStdString(view.accessibilityLabel));
    const bool isTyped = wholeNumber(text().toStdString()) == field().value;
    if (rendering == Rendering::discardsTyping || (field().value != former && !isTyped)) {
        showValue();
    }
}

void NumberFieldWidget::takeOver(const QString &text) {
    const auto typed = wholeNumber(text.toStdString());
    if (typed && *typed != field().value) {
        field().changed(*typed);
    }
}

void NumberFieldWidget::showValue() {
    const QString text = QString::fromStdString(wholeNumberText(field().value));
    if (this->text() != text) {
        setText(text);
    }
}

void NumberFieldWidget::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    // Opening the field's context menu does not end the editing.
    if (event->reason() != Qt::PopupFocusReason) {
        showValue();
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
