#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QWidget>

namespace corvane::drawing {

class SymbolImages;

} // namespace corvane::drawing

namespace corvane::qt {

/// Shows a symbol as high as a line of its font.
class SymbolWidget : public QWidget, public ViewWidget {
  public:
    explicit SymbolWidget(drawing::SymbolImages &symbols);

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    void refresh();

    drawing::SymbolImages &symbols_;
    View view_{SymbolImage{}};
};

} // namespace corvane::qt
