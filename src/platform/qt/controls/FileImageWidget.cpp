#include "platform/qt/controls/FileImageWidget.h"

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

} // namespace corvane::qt
