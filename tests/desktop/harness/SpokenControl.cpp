#include "SpokenControl.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane::desktop {

namespace {

using namespace std::string_view_literals;

bool isOneOf(const auto &roles, std::string_view role) {
    return std::ranges::find(roles, role) != roles.end();
}

/// On one line: a line break would end it.
std::string quoted(std::string text) {
    constexpr std::string_view sign = "\u2424";
    for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at)) {
        text.replace(at, 1, sign);
    }
    return "'" + text + "'";
}

} // namespace

std::optional<std::string> SpokenControl::line() const {
    constexpr std::array frames{"layered pane"sv, "page tab list"sv};
    constexpr std::array groups{"filler"sv, "panel"sv, "popup menu"sv};
    if (role.empty() || isOneOf(frames, role) || (name.empty() && isOneOf(groups, role))) {
        return std::nullopt;
    }
    std::string line = role + " " + quoted(name);
    if (number) {
        line += " = " + *number;
    } else if (text) {
        line += " = " + quoted(*text);
    }
    line += isSelected ? " selected" : "";
    line += isChecked ? " checked" : "";
    line += isEnabled ? "" : " disabled";
    // What repeats the name is not said again.
    if (!description.empty() && description != name) {
        line += " for " + quoted(description);
    }
    return line;
}

bool SpokenControl::isSpokenWhole(const std::string &role) {
    return isOneOf(std::array{"combo box"sv, "link"sv}, role);
}

} // namespace corvane::desktop
