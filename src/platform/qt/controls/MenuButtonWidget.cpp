#include "platform/qt/controls/MenuButtonWidget.h"

#include "platform/drawing/DisplayText.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QEvent>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

namespace {

QColor warningColour(const QPalette &palette) {
    return isDark(palette) ? QColor(0xff, 0x7b, 0x72) : QColor(0xc4, 0x1e, 0x2a);
}

/// The style in use, with the items whose property `isWarning` is true in the colour of a warning.
class WarningMenuStyle : public QProxyStyle {
  public:
    static constexpr const char *isWarning = "isWarning";

    /// The menu owns it.
    explicit WarningMenuStyle(QMenu *menu) { setParent(menu); }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override {
        const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        const auto *menu = qobject_cast<const QMenu *>(widget);
        const QAction *action = item && menu ? menu->actionAt(item->rect.center()) : nullptr;
        if (element != CE_MenuItem || !action || !action->property(isWarning).toBool()) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        QStyleOptionMenuItem warning(*item);
        for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
            warning.palette.setColor(role, warningColour(warning.palette));
        }
        QProxyStyle::drawControl(element, &warning, painter, widget);
    }
};

} // namespace

MenuButtonWidget::MenuButtonWidget(drawing::SymbolImages &symbols) : symbols_(symbols) {
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

/// Each opening makes a new menu, because a long list of profiles would otherwise keep one for
/// every row. Opened by keyboard, the menu has its first item selected.
void MenuButtonWidget::openMenu() {
    menu_ = new QMenu(this);
    menu_->setAttribute(Qt::WA_DeleteOnClose);
    menu_->setStyle(new WarningMenuStyle(menu_));
    for (const MenuButtonItem &item : menuButton().items) {
        addItem(*menu_, item);
    }
    menu_->popup(mapToGlobal(QPoint(0, height())));
    if (!isClickedByMouse_) {
        menu_->setActiveAction(menu_->actions().constFirst());
    }
}

void MenuButtonWidget::mouseReleaseEvent(QMouseEvent *event) {
    isClickedByMouse_ = true;
    QToolButton::mouseReleaseEvent(event);
    isClickedByMouse_ = false;
}

void MenuButtonWidget::addItem(QMenu &menu, const MenuButtonItem &item) {
    if (item.title.empty()) {
        menu.addSeparator();
        return;
    }
    auto *action = menu.addAction(drawing::withoutMnemonic(QString::fromStdString(item.title)));
    action->setProperty(WarningMenuStyle::isWarning, item.isDestructive);
    // Queued until the menu has closed, because the handler may open a dialog.
    connect(
        action, &QAction::triggered, this, [handler = item.action] { handler(); },
        Qt::QueuedConnection);
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
