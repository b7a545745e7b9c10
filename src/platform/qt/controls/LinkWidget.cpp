#include "platform/qt/controls/LinkWidget.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

namespace {

/// All the words of a label, as a screen reader says them.
QString words(const View &view) {
    if (const auto *text = std::get_if<Text>(&view.content)) {
        return QString::fromStdString(text->text);
    }
    QStringList parts;
    if (const auto *stack = std::get_if<Stack>(&view.content)) {
        for (const View &child : stack->children) {
            parts << words(child);
        }
    }
    parts.removeAll(QString());
    return parts.join(u' ');
}

} // namespace

LinkWidget::LinkWidget(drawing::SymbolImages &symbols) : symbols_(symbols) {
    auto *frame = new QVBoxLayout(this);
    frame->setContentsMargins(0, 0, 0, 0);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] { link().action(); });
}

void LinkWidget::render(const View &view, Rendering rendering) {
    view_ = view;
    showLabel(rendering);
    setAccessibleName(words(link().label.front()));
    setToolTip(QString::fromStdString(link().address));
    refreshColours();
}

void LinkWidget::showLabel(Rendering rendering) {
    const View &label = link().label.front();
    const WidgetKind kind = kindOf(label);
    if (!label_ || kind != labelKind_) {
        if (label_) {
            delete &label_->widget();
        }
        label_ = makeViewWidget(label, symbols_);
        labelKind_ = kind;
        label_->widget().setAttribute(Qt::WA_TransparentForMouseEvents);
        layout()->addWidget(&label_->widget());
    }
    label_->render(label, rendering);
}

void LinkWidget::refreshColours() {
    QPalette colours = QApplication::palette(this);
    if (!link().isPlain) {
        colours.setColor(QPalette::WindowText, textColour(Colour{ColourName::systemBlue}, colours));
    }
    if (colours != palette()) {
        setPalette(colours);
    }
}

QSize LinkWidget::sizeHint() const { return layout()->totalSizeHint(); }

bool LinkWidget::event(QEvent *event) {
    if (event->type() == QEvent::PaletteChange) {
        refreshColours();
    }
    return QAbstractButton::event(event);
}

void LinkWidget::paintEvent(QPaintEvent *) {
    if (!hasFocus()) {
        return;
    }
    constexpr double cornerRadius = 5;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
