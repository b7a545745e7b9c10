#include "platform/x11/connection/WindowProperty.h"

#include <cstring>

namespace corvane::x11 {

namespace {

/// In units of four bytes: more than any title or list of windows needs.
constexpr std::uint32_t longest = 16384;

} // namespace

std::vector<std::uint32_t> PropertyValue::numbers() const {
    if (format != 32) {
        return {};
    }
    std::vector<std::uint32_t> numbers(content.size() / sizeof(std::uint32_t));
    if (!numbers.empty()) {
        std::memcpy(numbers.data(), content.data(), numbers.size() * sizeof(std::uint32_t));
    }
    return numbers;
}

std::optional<std::uint32_t> PropertyValue::number() const {
    const auto all = numbers();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::string_view PropertyValue::bytes() const { return format == 8 ? content : std::string_view(); }

std::string_view PropertyValue::text() const {
    const std::string_view all = bytes();
    return all.substr(0, all.find('\0'));
}

WindowProperty::WindowProperty(const XcbConnection &connection, xcb_window_t window,
                               xcb_atom_t name)
    : connection_(connection),
      cookie_(xcb_get_property(connection.get(), 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0,
                               longest)) {}

WindowProperty::~WindowProperty() {
    if (!hasReply_) {
        xcb_discard_reply(connection_.get(), cookie_.sequence);
    }
}

PropertyValue WindowProperty::value() {
    if (!hasReply_) {
        hasReply_ = true;
        reply_ = reply<xcb_get_property_reply>(connection_.get(), cookie_);
    }
    if (!reply_) {
        return {};
    }
    return {.type = reply_->type,
            .format = reply_->format,
            .content = {static_cast<const char *>(xcb_get_property_value(reply_.get())),
                        static_cast<std::size_t>(xcb_get_property_value_length(reply_.get()))}};
}

} // namespace corvane::x11
