#include "platform/wayland/windows/WindowList.h"

namespace corvane::wayland {

std::optional<std::vector<platform::WindowListEntry>> WindowList::onScreenWindows() {
    const auto windows = windows_.windows();
    if (!windows) {
        return std::nullopt;
    }
    std::vector<platform::WindowListEntry> entries;
    for (const Window &window : *windows) {
        if (window.isOnScreen) {
            constexpr std::int64_t ordinaryLayer = 0;
            entries.push_back({.bounds = window.frame,
                               .ownerProcessIdentifier = window.processIdentifier,
                               .name = window.title,
                               .layer = ordinaryLayer});
        }
    }
    return entries;
}

} // namespace corvane::wayland
