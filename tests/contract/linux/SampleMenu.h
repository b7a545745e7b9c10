#pragma once

#include "presentation/Menu.h"

#include <string>
#include <vector>

namespace corvane::contract {

/// A menu as the program shows it, with one of every kind of line.
inline Menu sampleMenu(const std::vector<std::string> &profiles = {"Games", "Work"}) {
    std::vector<MenuItem> submenu;
    submenu.reserve(profiles.size() + 2);
    for (const auto &name : profiles) {
        submenu.push_back(
            {.title = name, .action = "loadProfile:", .representedObject = "id of " + name});
    }
    submenu.push_back(MenuItem::separator());
    submenu.push_back({.title = "Save current config...",
                       .action = "saveAsProfile:",
                       .image = Symbol{.name = "plus.circle"}});
    return {{{.title = "Running", .isEnabled = false},
             MenuItem::separator(),
             {.title = "Stop\t⇧⌘Y",
              .action = "stopClicking:",
              .target = MenuTarget::appDelegate,
              .image = Symbol{.name = "stop.fill"}},
             {.title = "Free Cursor", .action = "setModeCursor:", .isEnabled = false, .isOn = true},
             {.title = "Defined Zone", .action = "setModeZone:"},
             {.title = "Profiles",
              .image = Symbol{.name = "person.crop.rectangle.stack"},
              .submenu = submenu},
             {.title = "Settings...", .action = "showConfig:", .commandKey = ","},
             {.title = "Quit Corvane", .action = "terminate:", .commandKey = "q"}}};
}

} // namespace corvane::contract
