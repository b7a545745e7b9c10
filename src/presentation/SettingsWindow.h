#pragma once

#include "presentation/Symbol.h"

#include <string>
#include <vector>

namespace corvane {

/// One tab of a window's toolbar.
struct ToolbarItem {
    std::string identifier;
    std::string label;
    Symbol image;

    bool operator==(const ToolbarItem &) const = default;
};

/// A row of centred tabs, each an icon over a label, exactly one of them selected.
struct Toolbar {
    std::string identifier;
    std::vector<ToolbarItem> items;
    std::string selectedItem;

    bool operator==(const Toolbar &) const = default;
};

/// A window with a title bar that can be closed, but neither resized nor miniaturised.
struct SettingsWindow {
    std::string title;
    /// Of the content, points. The height follows the content.
    double width = 0;
    Toolbar toolbar;

    bool operator==(const SettingsWindow &) const = default;
};

} // namespace corvane
