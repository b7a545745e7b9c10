#include "platform/x11/connection/WindowProperty.h"

namespace corvane::x11 {

namespace {

/// Nobody's title or list of windows is longer; in units of four bytes.
constexpr std::uint32_t longest = 16384;

} // namespace

WindowProperty::WindowProperty(const XcbConnection &connection, xcb_window_t window,
                               xcb_atom_t name)
    : connection_(connection),
      cookie_(xcb_get_property(connection.get(), 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0,
                               longest)) {}

WindowProperty::~WindowProperty() {
    if (!isAnswered_) {
        xcb_discard_reply(connection_.get(), cookie_.sequence);
    }
}

const xcb_get_property_reply_t *WindowProperty::reply() {
    if (!isAnswered_) {
        isAnswered_ = true;
        xcb_generic_error_t *error = nullptr;
        reply_.reset(xcb_get_property_reply(connection_.get(), cookie_, &error));
        XcbReply<xcb_generic_error_t>(error).reset();
    }
    return reply_.get();
}

PropertyValue WindowProperty::value() {
    const auto *answer = reply();
    if (answer == nullptr) {
        return {};
    }
    return {.type = answer->type,
            .format = answer->format,
            .content = {static_cast<const char *>(xcb_get_property_value(answer)),
                        static_cast<std::size_t>(xcb_get_property_value_length(answer))}};
}

} // namespace corvane::x11
