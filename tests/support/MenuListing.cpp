#include "support/MenuListing.h"

#include <vector>

namespace corvane::testing {

namespace {

const char *nameOf(ActionID action) {
    switch (action) {
    case ActionID::none:
        return "";
    case ActionID::openAccessibilitySettings:
        return "openAccessibilitySettings";
    case ActionID::startClicking:
        return "startClicking";
    case ActionID::stopClicking:
        return "stopClicking";
    case ActionID::setModeCursor:
        return "setModeCursor";
    case ActionID::setModeZone:
        return "setModeZone";
    case ActionID::selectZone:
        return "selectZone";
    case ActionID::loadProfile:
        return "loadProfile";
    case ActionID::saveAsProfile:
        return "saveAsProfile";
    case ActionID::showConfig:
        return "showConfig";
    case ActionID::terminate:
        return "terminate";
    }
    return "unknown";
}

std::string line(const MenuItem &item) {
    if (item.isSeparator) {
        return "---";
    }
    std::string text = (item.isOn ? "[x] " : "") + item.title + (item.isEnabled ? "" : " (off)");
    for (const std::string &detail :
         {std::string(nameOf(item.action)), item.image ? item.image->name : std::string(),
          item.hotKey ? std::string("hot key ") + item.hotKey->letter : std::string(),
          item.commandKey, item.representedObject}) {
        if (!detail.empty()) {
            text += " | " + detail;
        }
    }
    return text;
}

std::string lines(const std::vector<MenuItem> &items, const std::string &indentation) {
    std::string text;
    for (const MenuItem &item : items) {
        text += indentation + line(item) + "\n";
        if (item.submenu) {
            text += lines(*item.submenu, indentation + "    ");
        }
    }
    return text;
}

} // namespace

std::string listing(const Menu &menu) { return lines(menu.items, ""); }

} // namespace corvane::testing
