#pragma once

#include "platform/x11/connection/PropertyValue.h"

#include <cstdint>
#include <optional>

namespace corvane::x11 {

/// A mark as the X server keeps it in a window's property.
struct ButtonMarkValue {
    static constexpr std::uint8_t noButton = 0;

    std::uint8_t button = noButton;
    /// The process that has pressed it.
    std::uint32_t owner = 0;

    /// Nothing where the property is no mark.
    static std::optional<ButtonMarkValue> in(const PropertyValue &property);
};

} // namespace corvane::x11
