#include "platform/linux/WindowProperty.h"

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

xcb_atom_t WindowProperty::type() {
    const auto *answer = reply();
    return answer != nullptr ? answer->type : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> WindowProperty::numbers() {
    const auto *answer = reply();
    if (answer == nullptr || answer->format != 32) {
        return {};
    }
    const auto *values = static_cast<const std::uint32_t *>(xcb_get_property_value(answer));
    return {values, values + answer->value_len};
}

std::optional<std::uint32_t> WindowProperty::number() {
    const auto values = numbers();
    return values.empty() ? std::nullopt : std::optional(values.front());
}

std::string_view WindowProperty::bytes() {
    const auto *answer = reply();
    if (answer == nullptr || answer->format != 8) {
        return {};
    }
    return {static_cast<const char *>(xcb_get_property_value(answer)), answer->value_len};
}

std::string_view WindowProperty::text() {
    const std::string_view all = bytes();
    return all.substr(0, all.find('\0'));
}

} // namespace corvane::x11
