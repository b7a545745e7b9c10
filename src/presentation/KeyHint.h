#pragma once

namespace corvane {

/// The key that starts and stops clicking, as menus hint at it. Back ends write it as their system
/// does.
inline constexpr const char *startStopKeyHint = "⇧⌘Y";

} // namespace corvane
