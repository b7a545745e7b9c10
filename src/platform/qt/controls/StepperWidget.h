#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QTimer>
#include <QWidget>

#include <optional>

namespace corvane::qt {

/// Shows a stepper: an upper half that counts up and a lower one that counts down.
class StepperWidget : public QWidget, public ViewWidget {
  public:
    StepperWidget();

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

    const Stepper &stepper() const { return std::get<Stepper>(view_.content); }

    /// Changes the number by one step, within its range.
    void step(bool isUp);

    QSize sizeHint() const override;

  protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    bool canStep(bool isUp) const;
    QRect half(bool isUp) const;
    void drawHalf(QPainter &painter, bool isUp) const;
    void repeat();

    View view_{Stepper{}};
    QTimer repeatTimer_;
    /// The half that is pressed and the one under the pointer; true for the upper one.
    std::optional<bool> pressed_;
    std::optional<bool> hovered_;
};

} // namespace corvane::qt
