#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane::x11 {

/// A property's value as some program has written it: untrusted input. A value of another format
/// than the one that is read counts as absent or empty.
struct PropertyValue {
    /// XCB_ATOM_NONE when there is no such property.
    xcb_atom_t type = XCB_ATOM_NONE;
    /// Bits per item: 8, 16 or 32.
    int format = 0;
    /// Not owned.
    std::string_view content{};

    std::vector<std::uint32_t> numbers() const;
    std::optional<std::uint32_t> number() const;
    /// The bytes up to the first zero.
    std::string_view text() const;
    std::string_view bytes() const;
};

/// A request for a property of a window. The constructor sends it; the first read waits for the
/// reply, so that many requests can share one round trip.
class WindowProperty {
  public:
    /// The connection outlives the request.
    WindowProperty(const XcbConnection &connection, xcb_window_t window, xcb_atom_t name);
    ~WindowProperty();

    WindowProperty(const WindowProperty &) = delete;
    WindowProperty &operator=(const WindowProperty &) = delete;

    /// Valid as long as the request.
    PropertyValue value();

    /// The first number of the value.
    std::optional<std::uint32_t> number() { return value().number(); }

  private:
    const XcbConnection &connection_;
    const xcb_get_property_cookie_t cookie_;
    bool hasReply_ = false;
    XcbReply<xcb_get_property_reply_t> reply_;
};

} // namespace corvane::x11
