#include "platform/qt/controls/TextWidget.h"

#include "platform/drawing/DisplayText.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace corvane::qt {

namespace {

/// In characters. A longer text is cut before it is measured: no window shows more, and measuring
/// is slow.
constexpr qsizetype longestText = 1000;
/// In line heights: a narrower text is neither wrapped nor cut.
constexpr int wholeLines = 10;
constexpr int wholeLinesOnOneLine = 5;
/// How much of a name stays visible beside a longer text, points.
constexpr int leastWidthOnOneLine = 190;

Qt::Alignment lineAlignment(Alignment alignment) {
    switch (alignment) {
    case Alignment::center:
        return Qt::AlignHCenter;
    case Alignment::trailing:
        return Qt::AlignRight;
    case Alignment::leading:
    case Alignment::top:
        break;
    }
    return Qt::AlignLeft;
}

} // namespace

TextWidget::TextWidget() {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

void TextWidget::render(const View &view, Rendering) {
    if (view == view_) {
        return;
    }
    view_ = view;
    refresh();
}

bool TextWidget::isSingleLine() const { return std::get<Text>(view_.content).isSingleLine; }

void TextWidget::refresh() {
    const Text &text = std::get<Text>(view_.content);
    const QString whole = QString::fromStdString(text.text);
    shown_ = drawing::shortened(isSingleLine() ? drawing::onOneLine(whole) : whole, longestText);
    setFont(viewFont(view_.font));
    setAlignment(lineAlignment(text.lineAlignment) | Qt::AlignVCenter);
    setText(shown_);
    setAccessibleName(view_.accessibilityLabel.empty()
                          ? whole
                          : QString::fromStdString(view_.accessibilityLabel));
    setWordWrap(!isSingleLine() && minimumSizeHint().width() < naturalWidth());
    updateGeometry();
    update();
}

int TextWidget::naturalWidth() const {
    return fontMetrics()
               .boundingRect(QRect(0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX), Qt::AlignLeft, shown_)
               .width() +
           1;
}

QSize TextWidget::sizeHint() const {
    const int width = naturalWidth();
    return {width, isSingleLine() ? fontMetrics().height()
                                  : std::max(heightForWidth(width), fontMetrics().height())};
}

QSize TextWidget::minimumSizeHint() const {
    const int height = fontMetrics().height();
    const int least = isSingleLine() ? std::max(wholeLinesOnOneLine * height, leastWidthOnOneLine)
                                     : wholeLines * height;
    return {std::min(naturalWidth(), least), height};
}

bool TextWidget::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        refresh();
    }
    return QLabel::event(event);
}

void TextWidget::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    const bool isCut = isSingleLine() && naturalWidth() > width();
    setToolTip(isCut ? drawing::toolTipText(shown_) : QString());
}

void TextWidget::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setPen(textColour(view_.foreground, palette()));
    if (isSingleLine()) {
        const QString fitting = fontMetrics().elidedText(shown_, Qt::ElideRight, width());
        painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, fitting);
    } else {
        painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextWordWrap, shown_);
    }
}

} // namespace corvane::qt
