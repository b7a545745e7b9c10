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
            {.title = name, .action = ActionID::loadProfile, .representedObject = "id of " + name});
    }
    submenu.push_back(MenuItem::separator());
    submenu.push_back({.title = "Save current config...",
                       .action = ActionID::saveAsProfile,
                       .image = Symbol{.name = "plus.circle"}});
    return {{{.title = "Running", .isEnabled = false},
             MenuItem::separator(),
             {.title = "Stop",
              .action = ActionID::stopClicking,
              .hotKey = startStopKey,
              .image = Symbol{.name = "stop.fill"}},
             {.title = "Free Cursor",
              .action = ActionID::setModeCursor,
              .isEnabled = false,
              .isOn = true},
             {.title = "Defined Zone", .action = ActionID::setModeZone},
             {.title = "Profiles",
              .image = Symbol{.name = "person.crop.rectangle.stack"},
              .submenu = submenu},
             {.title = "Settings...", .action = ActionID::showConfig, .commandKey = ","},
             {.title = "Quit Corvane", .action = ActionID::terminate, .commandKey = "q"}}};
}

} // namespace corvane::contract
