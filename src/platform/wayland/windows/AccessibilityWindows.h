#pragma once

#include "platform/Accessibility.h"
#include "platform/wayland/windows/Windows.h"

#include <cstdint>
#include <memory>
#include <set>

namespace corvane::wayland {

/// The windows of those processes, front-most first, as they are now; null while they cannot be
/// read. One that is not on the screen has neither a position nor a size.
std::shared_ptr<const platform::AccessibilityWindows>
accessibilityWindows(Windows &windows, const std::set<std::int32_t> &processes);

} // namespace corvane::wayland
