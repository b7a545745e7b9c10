#include "platform/qt/controls/PictureWidgets.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QEvent>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace corvane::qt {

void FileImageWidget::render(const View &view, Rendering) {
    if (view == view_) {
        return;
    }
    view_ = view;
    picture_ = {};
    const Size size = std::get<FileImage>(view.content).size;
    setFixedSize(static_cast<int>(std::lround(size.width)),
                 static_cast<int>(std::lround(size.height)));
    setAccessibleName(QString::fromStdString(view.accessibilityLabel));
    update();
}

const QPixmap &FileImageWidget::picture() {
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (picture_.size() != pixels) {
        QImageReader reader(
            QString::fromStdString(std::get<FileImage>(view_.content).file.string()));
        reader.setScaledSize(pixels);
        picture_ = QPixmap::fromImageReader(&reader);
        picture_.setDevicePixelRatio(devicePixelRatioF());
    }
    return picture_;
}

void FileImageWidget::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = std::get<FileImage>(view_.content).cornerRadius;
    QPainterPath outline;
    outline.addRoundedRect(rect(), radius, radius);
    painter.setClipPath(outline);
    painter.drawPixmap(0, 0, picture());
}

SymbolWidget::SymbolWidget(drawing::SymbolImages &symbols) : symbols_(symbols) {}

void SymbolWidget::render(const View &view, Rendering) {
    if (view == view_) {
        return;
    }
    view_ = view;
    refresh();
}

void SymbolWidget::refresh() {
    const int side = QFontMetrics(viewFont(view_.font)).height();
    setFixedSize(side, side);
    setAccessibleName(QString::fromStdString(view_.accessibilityLabel));
    update();
}

bool SymbolWidget::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        refresh();
    }
    return QWidget::event(event);
}

void SymbolWidget::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.drawPixmap(0, 0,
                       symbols_.pixmap(std::get<SymbolImage>(view_.content).name,
                                       symbolColour(view_.foreground, palette()), width(),
                                       devicePixelRatioF()));
}

DividerWidget::DividerWidget() { setFixedHeight(1); }

void DividerWidget::paintEvent(QPaintEvent *) {
    constexpr double strength = 0.12;
    QPainter(this).fillRect(rect(), faded(palette(), strength));
}

} // namespace corvane::qt
