#pragma once

#include "platform/qt/controls/AccessibleRole.h"
#include "platform/qt/controls/ViewWidget.h"

#include <QMenu>
#include <QPointer>
#include <QToolButton>

namespace corvane::qt {

/// Shows a symbol that opens a menu.
class MenuButtonWidget : public QToolButton, public ViewWidget, public AccessibleRole {
  public:
    explicit MenuButtonWidget(drawing::SymbolImages &symbols);

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

    QAccessible::Role accessibleRole() const override { return QAccessible::ButtonMenu; }

    /// The menu while it is open.
    QMenu *shownMenu() const { return menu_; }

  protected:
    bool event(QEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

  private:
    const MenuButton &menuButton() const { return std::get<MenuButton>(view_.content); }
    void refresh();
    void openMenu();
    void addItem(QMenu &menu, const MenuButtonItem &item);

    drawing::SymbolImages &symbols_;
    View view_{MenuButton{}};
    QPointer<QMenu> menu_;
    bool isClickedByMouse_ = false;
};

} // namespace corvane::qt
