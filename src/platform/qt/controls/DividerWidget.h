#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QWidget>

namespace corvane::qt {

/// A faint line from side to side.
class DividerWidget : public QWidget, public ViewWidget {
  public:
    DividerWidget();

    QWidget &widget() override { return *this; }
    void render(const View &, Rendering) override {}

  protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace corvane::qt
