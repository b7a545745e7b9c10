#pragma once

#include <xcb/xproto.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane::x11 {

/// What a program has put into a property, whatever that is. What is of another form than asked for
/// reads as absent or empty.
struct PropertyValue {
    /// None where there is no such property.
    xcb_atom_t type = XCB_ATOM_NONE;
    /// Bits of a unit.
    int format = 0;
    /// Owned by somebody else.
    std::string_view content{};

    std::vector<std::uint32_t> numbers() const;
    std::optional<std::uint32_t> number() const;
    /// The bytes up to the first zero.
    std::string_view text() const;
    std::string_view bytes() const;
};

} // namespace corvane::x11
