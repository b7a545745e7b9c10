#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QLineEdit>

namespace corvane::qt {

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
