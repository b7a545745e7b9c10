#include "platform/qt/controls/SymbolWidget.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QEvent>
#include <QPainter>

namespace corvane::qt {

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

} // namespace corvane::qt
