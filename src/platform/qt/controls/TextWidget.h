#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QLabel>

namespace corvane::qt {

/// Shows a text, wrapped or on one line that is cut at its end, as its width demands.
class TextWidget : public QLabel, public ViewWidget {
  public:
    TextWidget();

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

  private:
    bool isSingleLine() const;
    int naturalWidth() const;
    void refresh();

    View view_{Text{}};
    /// The text that is measured and drawn.
    QString shown_;
};

} // namespace corvane::qt
