#include "platform/linux/MenuButtonWidget.h"

#include "platform/linux/DisplayText.h"
#include "platform/linux/SymbolImages.h"
#include "platform/linux/WarningMenuStyle.h"

#include <QEvent>
#include <QMenu>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::x11 {

MenuButtonWidget::MenuButtonWidget(SymbolImages &symbols) : symbols_(symbols) {
    constexpr int iconSide = 20;
    setIconSize({iconSide, iconSide});
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QToolButton::clicked, this, &MenuButtonWidget::openMenu);
}

void MenuButtonWidget::render(const View &view, Rendering) {
    const bool isSame = view == view_;
    view_ = view;
    if (!isSame) {
        refresh();
    }
}

void MenuButtonWidget::refresh() {
    setAccessibleName(QString::fromStdString(view_.accessibilityLabel));
    setToolTip(accessibleName());
    setIcon(symbols_.icon(menuButton().symbolName, palette(), QPalette::WindowText,
                          QPalette::WindowText));
}

bool MenuButtonWidget::event(QEvent *event) {
    if (event->type() == QEvent::PaletteChange) {
        refresh();
    }
    return QToolButton::event(event);
}

/// A menu made for the occasion: a long list of profiles would keep very many.
void MenuButtonWidget::openMenu() {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyle(new WarningMenuStyle(menu));
    for (const MenuButtonItem &item : menuButton().items) {
        addItem(*menu, item);
    }
    menu->popup(mapToGlobal(QPoint(0, height())));
}

void MenuButtonWidget::addItem(QMenu &menu, const MenuButtonItem &item) {
    if (item.title.empty()) {
        menu.addSeparator();
        return;
    }
    auto *action = menu.addAction(withoutMnemonic(QString::fromStdString(item.title)));
    action->setProperty(WarningMenuStyle::isWarning, item.isDestructive);
    // After the menu has closed, because a dialog may follow.
    connect(
        action, &QAction::triggered, this, [handler = item.action] { handler(); },
        Qt::QueuedConnection);
}

} // namespace corvane::x11

// NOLINTEND(cppcoreguidelines-owning-memory)
