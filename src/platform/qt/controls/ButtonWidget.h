#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QPushButton>

namespace corvane::qt {

/// Shows a button.
class ButtonWidget : public QPushButton, public ViewWidget {
  public:
    explicit ButtonWidget(drawing::SymbolImages &symbols);

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

    /// Whether Return performs it from anywhere in the window.
    bool isDefaultAction() const { return button().isDefaultAction; }

    QSize sizeHint() const override;

  protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    const Button &button() const { return std::get<Button>(view_.content); }
    void refresh();
    void paintProminent();

    drawing::SymbolImages &symbols_;
    View view_{Button{}};
};

} // namespace corvane::qt
