#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QLineEdit>

#include <cstdint>

namespace corvane::qt {

/// Shows a number field.
class NumberFieldWidget : public QLineEdit, public ViewWidget {
  public:
    NumberFieldWidget();

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  protected:
    void focusOutEvent(QFocusEvent *event) override;

  private:
    const NumberField &field() const { return std::get<NumberField>(view_.content); }
    void takeOver(const QString &text);
    /// Shows the value, which was `former` until now.
    void showValue(std::int64_t former, Rendering rendering);

    View view_{NumberField{}};
};

/// Shows a text field.
class TextFieldWidget : public QLineEdit, public ViewWidget {
  public:
    TextFieldWidget();

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  private:
    const TextField &field() const { return std::get<TextField>(view_.content); }

    View view_{TextField{}};
};

} // namespace corvane::qt
