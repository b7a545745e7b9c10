#pragma once

#include "presentation/ActionID.h"
#include "presentation/HotKey.h"
#include "presentation/Symbol.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// A command as a menu item sends it.
struct MenuCommand {
    ActionID action = ActionID::none;
    /// What the item stands for, such as a profile's id; empty for none.
    std::string representedObject{};

    bool operator==(const MenuCommand &) const = default;
};

/// One line of a menu.
struct MenuItem {
    std::string title;
    /// None for an item that does nothing.
    ActionID action = ActionID::none;
    /// A hint at the trailing edge: the key that does the same from anywhere.
    std::optional<HotKey> hotKey{};
    /// The key that performs the item together with Command while the menu has the keyboard; empty
    /// for none.
    std::string commandKey{};
    std::optional<Symbol> image{};
    bool isEnabled = true;
    /// A check mark.
    bool isOn = false;
    bool isSeparator = false;
    std::string representedObject{};
    /// Absent for an item without a submenu.
    std::optional<std::vector<MenuItem>> submenu{};

    bool operator==(const MenuItem &) const = default;

    static MenuItem separator() { return {.title = "", .isSeparator = true}; }
};

/// A whole menu, top to bottom.
struct Menu {
    std::vector<MenuItem> items;

    bool operator==(const Menu &) const = default;
};

} // namespace corvane
