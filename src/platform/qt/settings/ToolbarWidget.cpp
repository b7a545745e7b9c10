#include "platform/qt/settings/ToolbarWidget.h"

#include "platform/qt/controls/ViewStyling.h"
#include "platform/qt/settings/ToolbarButton.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

ToolbarWidget::ToolbarWidget(const Toolbar &toolbar, drawing::SymbolImages &symbols,
                             const std::function<void(const std::string &)> &chosen)
    : items_(toolbar.items) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 8, 7);
    row->setSpacing(4);
    row->addStretch();
    for (const ToolbarItem &item : items_) {
        auto *button = new ToolbarButton(item, symbols);
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

/// The arrow keys choose the neighbour.
bool ToolbarWidget::moveFrom(const QObject *button, int key) {
    if (key != Qt::Key_Left && key != Qt::Key_Right) {
        return false;
    }
    const bool isForward = (key == Qt::Key_Right) == isLeftToRight();
    const auto here = std::ranges::find(buttons_, button);
    const auto last = std::prev(buttons_.end());
    if (here != (isForward ? last : buttons_.begin())) {
        ToolbarButton *neighbour = isForward ? *std::next(here) : *std::prev(here);
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
