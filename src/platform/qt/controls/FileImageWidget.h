#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QPixmap>
#include <QWidget>

namespace corvane::qt {

/// Shows a picture from a file; a file that is no picture leaves its place empty.
class FileImageWidget : public QWidget, public ViewWidget {
  public:
    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    /// The picture in the present size and resolution.
    const QPixmap &picture();

    View view_{FileImage{}};
    QPixmap picture_;
};

} // namespace corvane::qt
