#include "platform/x11/windows/WindowList.h"

#include <map>
#include <utility>

namespace corvane::x11 {

namespace {

using Owners = std::map<xcb_window_t, WindowOwner>;

Owners byWindow(std::vector<WindowOwner> owners) {
    Owners result;
    for (WindowOwner &owner : owners) {
        result.emplace(owner.window, std::move(owner));
    }
    return result;
}

platform::WindowListEntry entryFor(WindowInfo facts, const Owners &owners) {
    return {.bounds = facts.bounds,
            .ownerProcessIdentifier = owners.at(facts.window).processIdentifier,
            .name = std::move(facts.title),
            .layer = facts.layer};
}

} // namespace

std::optional<std::vector<platform::WindowListEntry>> WindowList::onScreenWindows() {
    const std::vector<xcb_window_t> windows = reader_.windows();
    const Owners owners = byWindow(reader_.owners(windows));
    std::vector<platform::WindowListEntry> entries;
    for (WindowInfo &facts : reader_.facts(windows)) {
        if (facts.isOnScreen && !facts.isDesktop) {
            entries.push_back(entryFor(std::move(facts), owners));
        }
    }
    if (connection_.isLost()) {
        return std::nullopt;
    }
    return entries;
}

} // namespace corvane::x11
