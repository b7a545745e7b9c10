#pragma once

#include "platform/x11/connection/PropertyValue.h"
#include "platform/x11/connection/XcbConnection.h"

namespace corvane::x11 {

/// A property of a window that has been asked for; the answer is waited for when it is first read.
class WindowProperty {
  public:
    /// The connection outlives the property.
    WindowProperty(const XcbConnection &connection, xcb_window_t window, xcb_atom_t name);
    ~WindowProperty();

    WindowProperty(const WindowProperty &) = delete;
    WindowProperty &operator=(const WindowProperty &) = delete;

    /// Valid as long as the property.
    PropertyValue value();

    /// The first number of the value.
    std::optional<std::uint32_t> number() { return value().number(); }

  private:
    const xcb_get_property_reply_t *reply();

    const XcbConnection &connection_;
    const xcb_get_property_cookie_t cookie_;
    bool isAnswered_ = false;
    XcbReply<xcb_get_property_reply_t> reply_;
};

} // namespace corvane::x11
