#include "platform/qt/settings/ToolbarWidget.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QAbstractButton>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

namespace {

constexpr int iconSide = 24;
constexpr int gap = 3;
constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 6;
constexpr int leastWidth = 76;
constexpr double cornerRadius = 8;

} // namespace

/// One tab of a toolbar: an icon over a label.
class ToolbarWidget::Button : public QAbstractButton, public AccessibleRole {
  public:
    /// `symbols` outlives the button.
    Button(const ToolbarItem &item, drawing::SymbolImages &symbols);

    void setSelected(bool isSelected);

    QAccessible::Role accessibleRole() const override { return QAccessible::PageTab; }
    bool isAccessiblySelected() const override { return isSelected_; }

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

  private:
    QFont labelFont() const;

    const ToolbarItem item_;
    drawing::SymbolImages &symbols_;
    bool isSelected_ = false;
    /// The focus frame is shown to users of the keyboard only.
    bool showsFocus_ = false;
};

ToolbarWidget::Button::Button(const ToolbarItem &item, drawing::SymbolImages &symbols)
    : item_(item),
      symbols_(symbols) {
    const QString label = QString::fromStdString(item.label);
    setText(label);
    setAccessibleName(label);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ToolbarWidget::Button::setSelected(bool isSelected) {
    if (isSelected == isSelected_) {
        return;
    }
    isSelected_ = isSelected;
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
    update();
}

QFont ToolbarWidget::Button::labelFont() const { return viewFont({.role = FontRole::callout}); }

QSize ToolbarWidget::Button::sizeHint() const {
    const QFontMetrics metrics(labelFont());
    const int width = std::max(iconSide, metrics.horizontalAdvance(text()));
    return {std::max(leastWidth, width + 2 * horizontalPadding),
            iconSide + gap + metrics.height() + 2 * verticalPadding};
}

void ToolbarWidget::Button::focusInEvent(QFocusEvent *event) {
    showsFocus_ =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QAbstractButton::focusInEvent(event);
}

void ToolbarWidget::Button::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isPressed = isSelected_ || isDown();
    const bool hasFrame = hasFocus() && showsFocus_;
    painter.setBrush(faded(palette(), isPressed ? 0.1 : underMouse() ? 0.05 : 0));
    painter.setPen(hasFrame ? QPen(palette().color(QPalette::Highlight), 1.5) : Qt::NoPen);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    const QColor colour = isSelected_ ? textColour(Colour{ColourName::systemBlue}, palette())
                                      : textColour(HierarchicalStyle::secondary, palette());
    painter.drawPixmap((width() - iconSide) / 2, verticalPadding,
                       symbols_.pixmap(item_.image.name, colour, iconSide, devicePixelRatioF()));
    painter.setPen(colour);
    painter.setFont(labelFont());
    painter.drawText(rect().adjusted(0, verticalPadding + iconSide + gap, 0, 0),
                     Qt::AlignHCenter | Qt::AlignTop, text());
}

ToolbarWidget::ToolbarWidget(const Toolbar &toolbar, drawing::SymbolImages &symbols,
                             const std::function<void(const std::string &)> &chosen)
    : items_(toolbar.items) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 8, 7);
    row->setSpacing(4);
    row->addStretch();
    for (const ToolbarItem &item : items_) {
        auto *button = new Button(item, symbols);
        button->installEventFilter(this);
        connect(button, &QAbstractButton::clicked, this,
                [chosen, identifier = item.identifier] { chosen(identifier); });
        row->addWidget(button);
        buttons_.push_back(button);
    }
    row->addStretch();
    setSelectedItem(toolbar.selectedItem);
}

void ToolbarWidget::setSelectedItem(const std::string &identifier) {
    selectedItem_ = identifier;
    for (std::size_t index = 0; index < items_.size(); ++index) {
        buttons_[index]->setSelected(items_[index].identifier == identifier);
    }
}

void ToolbarWidget::focusSelectedItem() {
    const auto item = std::ranges::find(items_, selectedItem_, &ToolbarItem::identifier);
    if (item != items_.end()) {
        buttons_[static_cast<std::size_t>(item - items_.begin())]->setFocus();
    }
}

bool ToolbarWidget::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        return moveFrom(watched, static_cast<QKeyEvent *>(event)->key());
    }
    return QWidget::eventFilter(watched, event);
}

/// The arrow keys select the neighbouring tab.
bool ToolbarWidget::moveFrom(const QObject *button, int key) {
    if (key != Qt::Key_Left && key != Qt::Key_Right) {
        return false;
    }
    const bool isForward = (key == Qt::Key_Right) == isLeftToRight();
    const auto here = std::ranges::find(buttons_, button);
    const auto last = std::prev(buttons_.end());
    if (here != (isForward ? last : buttons_.begin())) {
        Button *neighbour = isForward ? *std::next(here) : *std::prev(here);
        neighbour->setFocus(Qt::TabFocusReason);
        neighbour->click();
    }
    return true;
}

void ToolbarWidget::paintEvent(QPaintEvent *) {
    constexpr double lineStrength = 0.12;
    QPainter(this).fillRect(0, height() - 1, width(), 1, faded(palette(), lineStrength));
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
