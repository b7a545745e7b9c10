#include "DisplayConnection.h"

#include "platform/x11/connection/Xcb.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace corvane::desktop {

using x11::XcbReply;

DisplayConnection::DisplayConnection(const std::string &display)
    : connection_(x11::connectOneByOne(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(get()) != 0) {
        throw std::runtime_error("No X server at " + display);
    }
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
    root_ = screen_->root;
}

void DisplayConnection::synchronize() const {
    const XcbReply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
    if (!answer) {
        throw std::runtime_error("The X server is gone");
    }
}

xcb_atom_t DisplayConnection::atom(std::string_view name) const {
    const auto cookie =
        xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t DisplayConnection::selectionOwner(std::string_view name) const {
    const auto cookie = xcb_get_selection_owner(get(), atom(name));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(get(), cookie, nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void DisplayConnection::takeSelection(std::string_view name) const {
    const xcb_window_t window = xcb_generate_id(get());
    xcb_create_window(get(), XCB_COPY_FROM_PARENT, window, root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(get(), window, atom(name), XCB_CURRENT_TIME);
    synchronize();
}

xcb_window_t DisplayConnection::focus() const {
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
    return reply ? reply->focus : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool DisplayConnection::hasProperty(xcb_window_t window, std::string_view name) const {
    const auto cookie =
        xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), cookie, nullptr));
    return reply && reply->type != XCB_ATOM_NONE;
}

std::vector<std::uint32_t> DisplayConnection::properties(xcb_window_t window,
                                                         std::string_view name) const {
    constexpr std::uint32_t longest = 64;
    const auto cookie =
        xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *values = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

std::optional<std::uint32_t> DisplayConnection::property(xcb_window_t window,
                                                         std::string_view name) const {
    const auto values = properties(window, name);
    return values.empty() ? std::nullopt : std::optional(values.front());
}

void DisplayConnection::askWindowManager(xcb_window_t window, std::string_view message,
                                         const std::vector<std::uint32_t> &values) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(values, std::begin(event.data.data32));
    xcb_send_event(get(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    synchronize();
}

} // namespace corvane::desktop
