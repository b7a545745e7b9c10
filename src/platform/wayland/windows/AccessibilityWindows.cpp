#include "platform/wayland/windows/AccessibilityWindows.h"

#include "platform/linux/windowing/OtherWindow.h"

#include <utility>

namespace corvane::wayland {

std::shared_ptr<const platform::AccessibilityWindows>
accessibilityWindows(Windows &windows, const std::set<std::int32_t> &processes) {
    auto all = windows.windows();
    if (!all) {
        return nullptr;
    }
    auto result = std::make_shared<platform::AccessibilityWindows>();
    for (Window &window : *all) {
        if (processes.contains(window.processIdentifier)) {
            result->push_back(std::make_unique<linux::OtherWindow>(
                std::move(window.title), window.frame, window.isOnScreen));
        }
    }
    return result;
}

} // namespace corvane::wayland
