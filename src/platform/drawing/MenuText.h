#pragma once

#include "presentation/Menu.h"

#include <QString>
#include <QStringList>

#include <string>

namespace corvane::drawing {

/// A menu item's text as this desktop shows it.
struct MenuText {
    /// The whole title on one line, without control characters.
    QString label;
    /// The keys to press together, modifiers first: "Super", "Shift", "Y". Empty for none.
    QStringList keys;
};

/// A hot key as this desktop writes it: "Super+Shift+Y".
std::string hotKeyText(const HotKey &hotKey);

/// The item's title, and as keys either its hot key or its own key together with Control.
MenuText menuText(const MenuItem &item);

/// The same with a label that fits a menu on any of the screens: one that is wider is cut at its
/// end. Needs the GUI application.
MenuText fittedToScreens(MenuText text);

/// For a menu drawn by the toolkit: '&' is doubled, the keys follow a tab.
QString popupText(const MenuText &text);

/// For a menu drawn by the panel: '_' is doubled.
QString panelLabel(const MenuText &text);

/// The keys by the names panels know them by.
QStringList panelKeys(const MenuText &text);

} // namespace corvane::drawing
