#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Where clicks are made.
enum class ClickMode {
    /// Wherever the cursor is.
    cursor,
    /// At the cursor, while it lies inside the zone.
    zone
};

inline constexpr std::array allClickModes = {ClickMode::cursor, ClickMode::zone};

/// "cursor" or "zone".
std::string_view storedValue(ClickMode mode);

/// Nothing for any other text.
std::optional<ClickMode> clickModeFromStoredValue(std::string_view text);

/// Localised, for the user.
std::string displayName(ClickMode mode);

} // namespace corvane
