#include "platform/x11/click/PressedButtonValue.h"

#include <limits>

namespace corvane::x11 {

std::optional<ButtonMarkValue> ButtonMarkValue::in(const PropertyValue &property) {
    const auto values = property.numbers();
    if (property.type != XCB_ATOM_CARDINAL || values.size() != 2 ||
        values[0] > std::numeric_limits<std::uint8_t>::max()) {
        return std::nullopt;
    }
    return ButtonMarkValue{.button = static_cast<std::uint8_t>(values[0]), .owner = values[1]};
}

} // namespace corvane::x11
