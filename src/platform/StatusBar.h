#pragma once

#include "presentation/Menu.h"
#include "presentation/StatusIcon.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace corvane::platform {

/// The program's place in the status bar. Main thread. Destroying it removes it.
class StatusItem {
  public:
    virtual ~StatusItem() = default;

    /// The button's size in points; nothing where the item has no button.
    virtual std::optional<Size> buttonSize() const = 0;

    virtual void setIcon(const StatusIcon &icon) = 0;

    /// Shows `menu` from now on. An open menu stays open and takes the new texts and states.
    virtual void setMenu(const Menu &menu) = 0;

    /// An empty text removes it.
    virtual void setToolTip(const std::string &text) = 0;

    /// Whether the user can see the item; always, where the status bar is part of the system. Else
    /// a bar may take a moment to take a new item, and come and go later.
    virtual bool isShown() const = 0;

    /// Opens the menu as if the item had been clicked.
    virtual void openMenu() = 0;
};

/// Where status items live. Main thread.
class StatusBar {
  public:
    virtual ~StatusBar() = default;

    /// An item of variable width; `perform` receives each command the user chooses, in a later
    /// turn, when the menu has closed. Never null; on a desktop without a status bar the item is
    /// kept, and shown when a bar appears.
    virtual std::unique_ptr<StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) = 0;
};

} // namespace corvane::platform
