#include "platform/macos/logic/WindowNames.h"

#include "platform/Accessibility.h"

#include <cmath>
#include <map>
#include <memory>

namespace corvane::macos {

namespace {

using Windows = std::shared_ptr<const platform::AccessibilityWindows>;

/// Points; the two interfaces may round differently.
constexpr double tolerance = 1;

bool isClose(double one, double other) { return std::abs(one - other) < tolerance; }

bool isAt(platform::AccessibilityWindow &window, const Rectangle &bounds) {
    const auto position = window.position();
    if (!position || !isClose(position->x, bounds.x) || !isClose(position->y, bounds.y)) {
        return false;
    }
    const auto size = window.size();
    return size && isClose(size->width, bounds.width) && isClose(size->height, bounds.height);
}

std::optional<std::string> titleAt(const Windows &windows, const Rectangle &bounds) {
    if (windows == nullptr) {
        return std::nullopt;
    }
    for (const auto &window : *windows) {
        if (isAt(*window, bounds)) {
            return window->title();
        }
    }
    return std::nullopt;
}

} // namespace

void addMissingNames(std::vector<platform::WindowListEntry> &windows,
                     platform::Accessibility &accessibility, std::int32_t ownProcessIdentifier) {
    if (!accessibility.isProcessTrusted()) {
        return;
    }
    std::map<std::int32_t, Windows> windowsOf;
    for (platform::WindowListEntry &entry : windows) {
        const auto &owner = entry.ownerProcessIdentifier;
        if (entry.name || !entry.bounds || !owner || *owner == ownProcessIdentifier ||
            entry.layer.value_or(0) != 0) {
            continue;
        }
        const auto [found, isNew] = windowsOf.try_emplace(*owner);
        if (isNew) {
            found->second = accessibility.windows(found->first);
        }
        entry.name = titleAt(found->second, *entry.bounds);
    }
}

} // namespace corvane::macos
