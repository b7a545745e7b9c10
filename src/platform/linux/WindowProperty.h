#pragma once

#include "platform/linux/XcbConnection.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane::x11 {

/// A property of a window that has been asked for; the answer is waited for when it is first read.
/// What is missing or malformed reads as absent or empty.
class WindowProperty {
  public:
    /// The connection outlives the property.
    WindowProperty(const XcbConnection &connection, xcb_window_t window, xcb_atom_t name);
    ~WindowProperty();

    WindowProperty(const WindowProperty &) = delete;
    WindowProperty &operator=(const WindowProperty &) = delete;

    /// The atom of the property's type; none where there is no such property.
    xcb_atom_t type();
    std::vector<std::uint32_t> numbers();
    std::optional<std::uint32_t> number();
    /// The bytes up to the first zero; valid as long as the property.
    std::string_view text();
    /// All bytes; valid as long as the property.
    std::string_view bytes();

  private:
    const xcb_get_property_reply_t *reply();

    const XcbConnection &connection_;
    const xcb_get_property_cookie_t cookie_;
    bool isAnswered_ = false;
    XcbReply<xcb_get_property_reply_t> reply_;
};

} // namespace corvane::x11
