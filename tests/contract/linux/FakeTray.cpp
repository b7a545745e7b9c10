#include "FakeTray.h"

#include <array>
#include <cstdint>

namespace corvane::contract {

namespace {

xcb_atom_t atom(const x11::XcbConnection &connection, std::string_view name) {
    const auto cookie =
        xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    return x11::reply<xcb_intern_atom_reply>(connection.get(), cookie)->atom;
}

constexpr std::uint16_t iconSize = 24;

template <typename... Values>
xcb_client_message_event_t message(xcb_window_t window, xcb_atom_t type, Values... values) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    std::size_t index = 0;
    ((event.data.data32[index++] = static_cast<std::uint32_t>(values)), ...);
    return event;
}

} // namespace

FakeTray::FakeTray(std::optional<QColor> foreground)
    : connection_(x11::XcbConnection::open().value()),
      window_(xcb_generate_id(connection_->get())) {
    auto *const xcb = connection_->get();
    const std::array<std::uint32_t, 2> values{1, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY |
                                                     XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window_, connection_->root(), 0, 0, iconSize,
                      iconSize, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_map_window(xcb, window_);
    if (foreground) {
        std::array<std::uint32_t, 12> colours{};
        colours[0] = foreground->rgba64().red();
        colours[1] = foreground->rgba64().green();
        colours[2] = foreground->rgba64().blue();
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window_, connection_->atoms().trayColours,
                            XCB_ATOM_CARDINAL, 32, colours.size(), colours.data());
    }
    const xcb_atom_t selection = connection_->atoms().traySelection;
    xcb_set_selection_owner(xcb, window_, selection, XCB_CURRENT_TIME);
    const auto announcement =
        message(connection_->root(), connection_->atoms().selectionAnnouncement, XCB_CURRENT_TIME,
                selection, window_);
    xcb_send_event(xcb, 0, connection_->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&announcement));
    connection_->synchronise();
}

FakeTray::~FakeTray() = default;

int FakeTray::icons() {
    while (const x11::XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
        answer(*event);
    }
    connection_->flush();
    return icons_;
}

void FakeTray::answer(const xcb_generic_event_t &event) {
    const auto type = event.response_type & 0x7F;
    if (type == XCB_DESTROY_NOTIFY) {
        --icons_;
        return;
    }
    if (type != XCB_CLIENT_MESSAGE) {
        return;
    }
    const auto &request = reinterpret_cast<const xcb_client_message_event_t &>(event);
    constexpr std::uint32_t dock = 0;
    if (request.type == atom(*connection_, "_NET_SYSTEM_TRAY_OPCODE") &&
        request.data.data32[1] == dock) {
        takeIn(request.data.data32[2]);
    }
}

void FakeTray::takeIn(xcb_window_t icon) {
    auto *const xcb = connection_->get();
    if (connection_->check(xcb_reparent_window_checked(xcb, icon, window_, 0, 0))) {
        return; // The icon is gone already.
    }
    ++icons_;
    const std::array<std::uint32_t, 2> size{iconSize, iconSize};
    xcb_configure_window(xcb, icon, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         size.data());
    constexpr std::uint32_t embedded = 0;
    const auto notice =
        message(icon, atom(*connection_, "_XEMBED"), XCB_CURRENT_TIME, embedded, 0, window_, 0);
    xcb_send_event(xcb, 0, icon, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&notice));
    xcb_map_window(xcb, icon);
}

} // namespace corvane::contract
