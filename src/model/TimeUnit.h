#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace corvane {

/// The unit of the click rate.
enum class TimeUnit { seconds, minutes, hours };

inline constexpr std::array allTimeUnits = {TimeUnit::seconds, TimeUnit::minutes, TimeUnit::hours};

/// "s", "m" or "h".
std::string_view storedValue(TimeUnit unit);

/// Nothing for any other text.
std::optional<TimeUnit> timeUnitFromStoredValue(std::string_view text);

double secondsPerUnit(TimeUnit unit);

} // namespace corvane
