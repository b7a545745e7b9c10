#include "platform/x11/windows/WindowList.h"

#include <map>
#include <utility>

namespace corvane::x11 {

std::optional<std::vector<platform::WindowListEntry>> WindowList::onScreenWindows() {
    const std::vector<xcb_window_t> windows = reader_.windows();
    std::map<xcb_window_t, std::optional<std::int32_t>> processes;
    for (const WindowOwner &owner : reader_.owners(windows)) {
        processes.emplace(owner.window, owner.processIdentifier);
    }
    std::vector<platform::WindowListEntry> entries;
    for (WindowInfo &info : reader_.info(windows)) {
        if (info.isOnScreen && !info.isDesktop) {
            entries.push_back({.bounds = info.bounds,
                               .ownerProcessIdentifier = processes.at(info.window),
                               .name = std::move(info.title),
                               .layer = info.layer});
        }
    }
    if (connection_.isLost()) {
        return std::nullopt;
    }
    return entries;
}

} // namespace corvane::x11
