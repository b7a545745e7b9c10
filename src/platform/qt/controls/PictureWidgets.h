#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QPixmap>
#include <QWidget>

namespace corvane::qt {

/// Shows an image file; nothing where it cannot be decoded.
class FileImageWidget : public QWidget, public ViewWidget {
  public:
    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    /// The image in the widget's size and resolution.
    const QPixmap &picture();

    View view_{FileImage{}};
    QPixmap picture_;
};

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
