#include "model/TimeUnit.h"

namespace corvane {

namespace {

constexpr std::array<std::string_view, allTimeUnits.size()> storedValues = {"s", "m", "h"};
constexpr std::array<double, allTimeUnits.size()> secondsPerUnitTable = {1.0, 60.0, 3600.0};

} // namespace

std::string_view storedValue(TimeUnit unit) {
    return storedValues.at(static_cast<std::size_t>(unit));
}

std::optional<TimeUnit> timeUnitFromStoredValue(std::string_view text) {
    for (const TimeUnit unit : allTimeUnits) {
        if (storedValue(unit) == text) {
            return unit;
        }
    }
    return std::nullopt;
}

double secondsPerUnit(TimeUnit unit) {
    return secondsPerUnitTable.at(static_cast<std::size_t>(unit));
}

} // namespace corvane
