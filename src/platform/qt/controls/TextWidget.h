#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QLabel>

namespace corvane::qt {

/// Shows a text: wrapped where it must be, or on one line that ends early where it must.
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
    /// What is measured and drawn: a very long text is cut before.
    QString shown_;
};

} // namespace corvane::qt
