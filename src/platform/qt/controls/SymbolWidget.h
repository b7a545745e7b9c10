#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QWidget>

namespace corvane::x11 {

class SymbolImages;

/// Shows a symbol as high as a line of its font.
class SymbolWidget : public QWidget, public ViewWidget {
  public:
    explicit SymbolWidget(SymbolImages &symbols);

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    void refresh();

    SymbolImages &symbols_;
    View view_{SymbolImage{}};
};

} // namespace corvane::x11
