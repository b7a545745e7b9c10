#include "support/MenuListing.h"

#include <vector>

namespace corvane::testing {

namespace {

std::string line(const MenuItem &item) {
    if (item.isSeparator) {
        return "---";
    }
    std::string text = (item.isOn ? "[x] " : "") + item.title + (item.isEnabled ? "" : " (off)");
    for (const std::string &detail : {item.action, item.image ? item.image->name : std::string(),
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
