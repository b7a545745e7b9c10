#pragma once

#include "platform/drawing/SymbolImages.h"
#include "presentation/Menu.h"

#include <QMenu>
#include <QProxyStyle>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::qt {

/// Renders menu values into one QMenu. Only what differs from the former value is changed, so that
/// an open menu stays open and usable; a closed one is updated when it opens. Main thread.
class MenuRenderer {
  public:
    /// `perform` receives each command the user chooses, in a later event-loop iteration.
    MenuRenderer(drawing::SymbolImages &symbols, std::function<void(const MenuCommand &)> perform);
    ~MenuRenderer();
    MenuRenderer(const MenuRenderer &) = delete;
    MenuRenderer &operator=(const MenuRenderer &) = delete;

    void setMenu(const Menu &menu);
    /// The value that was set last.
    const Menu &newest() const { return newest_; }

    /// Up to date now, and whenever it is open.
    QMenu &menu();

  private:
    class PopupMenu;

    void update();
    void patch(QMenu &menu, const std::vector<MenuItem> &from, const std::vector<MenuItem> &to);
    void patch(QAction &action, const MenuItem *from, const MenuItem &to);
    void patchSubmenu(QAction &action, const MenuItem *from, const MenuItem &to);
    QAction *makeAction(QMenu &menu);
    QIcon icon(const MenuItem &item);
    void tintImages(QMenu &menu, const std::vector<MenuItem> &items);
    void choose(QAction &action);

    drawing::SymbolImages &symbols_;
    std::function<void(const MenuCommand &)> perform_;
    Menu newest_;
    /// What the QMenu shows.
    Menu shown_;
    std::unique_ptr<QProxyStyle> style_;
    std::unique_ptr<PopupMenu> menu_;
};

} // namespace corvane::qt
