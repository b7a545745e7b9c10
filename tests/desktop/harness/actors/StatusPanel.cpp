#include "StatusPanel.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

/// What the program says by itself.
constexpr const char *registered = "registered";

} // namespace

StatusPanel::StatusPanel(const VirtualDesktop &desktop) : program_(desktop, CORVANE_STATUS_PANEL) {
    // It answers once it is on the bus.
    request("menu");
}

bool StatusPanel::waitForItem() const {
    return waitUntil([this] { return itemCount() > 0; });
}

int StatusPanel::itemCount() const {
    return static_cast<int>(
        std::ranges::count(wholeLines(program_.process().standardOutput()), registered));
}

std::vector<MenuLine> StatusPanel::menu() {
    std::vector<MenuLine> menu;
    for (const std::string &line : request("menu")) {
        const std::vector<std::string> fields = split(line, '\t');
        if (fields.front() == "line") {
            menu.push_back({.depth = std::stoi(fields.at(1)),
                            .isSeparator = fields.at(2) == "1",
                            .isEnabled = fields.at(3) == "1",
                            .isChecked = fields.at(4) == "1",
                            .title = fields.at(5)});
        }
    }
    return menu;
}

std::optional<MenuLine> StatusPanel::line(const std::string &title) {
    for (const MenuLine &line : menu()) {
        if (line.title == title) {
            return line;
        }
    }
    return std::nullopt;
}

bool StatusPanel::choose(const std::string &title) {
    return request("choose\t" + title).back() == "done";
}

std::vector<std::string> StatusPanel::request(const std::string &command) {
    // Items that register meanwhile are reported by signals between the replies.
    return program_.request(command, registered);
}

} // namespace corvane::desktop
