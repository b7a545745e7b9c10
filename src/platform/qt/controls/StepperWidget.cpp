#include "platform/qt/controls/StepperWidget.h"

#include "platform/qt/controls/ViewStyling.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace corvane::qt {

namespace {

constexpr int stepperWidth = 20;
constexpr double cornerRadius = 5;
constexpr int repeatDelay = 400;
constexpr int repeatPeriod = 60;

} // namespace

StepperWidget::StepperWidget() {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&repeatTimer_, &QTimer::timeout, this, &StepperWidget::repeat);
}

void StepperWidget::render(const View &view, Rendering) {
    const bool isSame = view == view_;
    view_ = view;
    if (!isSame) {
        setAccessibleName(QString::fromStdString(view.accessibilityLabel));
        QAccessibleValueChangeEvent changed(this, qlonglong(stepper().value));
        QAccessible::updateAccessibility(&changed);
        update();
    }
}

QSize StepperWidget::sizeHint() const { return {stepperWidth, controlHeight}; }

bool StepperWidget::canStep(bool isUp) const {
    return isUp ? stepper().incremented().has_value() : stepper().decremented().has_value();
}

void StepperWidget::step(bool isUp) {
    if (const auto next = isUp ? stepper().incremented() : stepper().decremented()) {
        stepper().changed(*next);
    }
}

void StepperWidget::repeat() {
    repeatTimer_.setInterval(repeatPeriod);
    if (pressed_ && pressed_ == hovered_) {
        step(*pressed_);
    }
}

void StepperWidget::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        step(event->key() == Qt::Key_Up);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void StepperWidget::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton) {
        hovered_ = half(true).contains(event->position().toPoint());
        pressed_ = hovered_;
        repeatTimer_.start(repeatDelay);
        update();
        step(*pressed_);
    }
}

void StepperWidget::mouseReleaseEvent(QMouseEvent *) {
    pressed_.reset();
    repeatTimer_.stop();
    update();
}

void StepperWidget::mouseMoveEvent(QMouseEvent *event) {
    const QPoint position = event->position().toPoint();
    hovered_ =
        rect().contains(position) ? std::optional(half(true).contains(position)) : std::nullopt;
    update();
}

bool StepperWidget::event(QEvent *event) {
    if (event->type() == QEvent::Leave) {
        hovered_.reset();
        update();
    } else if (event->type() == QEvent::Hide) {
        pressed_.reset();
        repeatTimer_.stop();
    }
    return QWidget::event(event);
}

QRect StepperWidget::half(bool isUp) const {
    const int middle = height() / 2;
    return isUp ? QRect(0, 0, width(), middle) : QRect(0, middle, width(), height() - middle);
}

void StepperWidget::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                           cornerRadius);
    painter.fillPath(outline, palette().color(QPalette::Button));
    painter.setClipPath(outline);
    drawHalf(painter, true);
    drawHalf(painter, false);
    painter.fillRect(QRectF(0, half(true).bottom() + 1, width(), 1), faded(palette(), 0.12));
    painter.setClipping(false);
    painter.setPen(QPen(hasFocus() ? palette().color(QPalette::Highlight) : faded(palette(), 0.25),
                        hasFocus() ? 1.5 : 1));
    painter.drawPath(outline);
}

void StepperWidget::drawHalf(QPainter &painter, bool isUp) const {
    const bool isActive = canStep(isUp);
    if (isActive && (pressed_ == isUp || hovered_ == isUp)) {
        painter.fillRect(half(isUp), faded(palette(), pressed_ == isUp ? 0.2 : 0.08));
    }
    const QPointF centre = QRectF(half(isUp)).center();
    const double rise = isUp ? -1.5 : 1.5;
    QPainterPath arrow(centre + QPointF(-3, -rise));
    arrow.lineTo(centre + QPointF(0, rise));
    arrow.lineTo(centre + QPointF(3, -rise));
    painter.setPen(QPen(faded(palette(), isActive ? 0.8 : 0.3), 1.4, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawPath(arrow);
}

} // namespace corvane::qt
