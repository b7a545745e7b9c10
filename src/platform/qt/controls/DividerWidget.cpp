#include "platform/qt/controls/DividerWidget.h"

#include "platform/qt/controls/ViewStyling.h"

#include <QPainter>

namespace corvane::qt {

DividerWidget::DividerWidget() { setFixedHeight(1); }

void DividerWidget::paintEvent(QPaintEvent *) {
    constexpr double strength = 0.12;
    QPainter(this).fillRect(rect(), faded(palette(), strength));
}

} // namespace corvane::qt
