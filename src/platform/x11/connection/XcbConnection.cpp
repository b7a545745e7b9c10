#include "platform/x11/connection/XcbConnection.h"

#include <span>
#include <utility>

namespace corvane::x11 {

namespace {

const xcb_screen_t *screenOfNumber(xcb_connection_t *connection, int number) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0 && number > 0; --number) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

XcbConnection::Result XcbConnection::open() { return open(nullptr); }

XcbConnection::Result XcbConnection::openAnother() const { return open(atoms_); }

XcbConnection::Result XcbConnection::open(std::shared_ptr<const Atoms> atoms) {
    int screenNumber = 0;
    XcbHandle connection = connectOneByOne(nullptr, &screenNumber);
    if (const int error = xcb_connection_has_error(connection.get()); error != 0) {
        return std::unexpected(error);
    }
    const xcb_screen_t *screen = screenOfNumber(connection.get(), screenNumber);
    if (screen == nullptr) {
        return std::unexpected(XCB_CONN_CLOSED_INVALID_SCREEN);
    }
    if (!atoms) {
        atoms = std::make_shared<const Atoms>(Atoms::of(connection.get(), screenNumber));
    }
    return std::unique_ptr<XcbConnection>(
        new XcbConnection(std::move(connection), screen, std::move(atoms))); // NOLINT
}

XcbConnection::XcbConnection(XcbHandle connection, const xcb_screen_t *screen,
                             std::shared_ptr<const Atoms> atoms)
    : connection_(std::move(connection)),
      screen_(screen),
      atoms_(std::move(atoms)) {}

void XcbConnection::synchronise() const {
    reply<xcb_get_input_focus_reply>(get(), xcb_get_input_focus(get()));
}

XcbReply<xcb_generic_error_t> XcbConnection::check(xcb_void_cookie_t cookie) const {
    return XcbReply<xcb_generic_error_t>(xcb_request_check(get(), cookie));
}

const xcb_query_extension_reply_t *XcbConnection::extension(xcb_extension_t &extension) const {
    const xcb_query_extension_reply_t *data = xcb_get_extension_data(get(), &extension);
    return data != nullptr && data->present != 0 ? data : nullptr;
}

xcb_window_t XcbConnection::selectionOwner(xcb_atom_t selection) const {
    const auto owner =
        reply<xcb_get_selection_owner_reply>(get(), xcb_get_selection_owner(get(), selection));
    return owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

std::vector<xcb_window_t> XcbConnection::childrenOf(xcb_window_t window) const {
    const auto tree = reply<xcb_query_tree_reply>(get(), xcb_query_tree(get(), window));
    if (!tree) {
        return {};
    }
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return {children.begin(), children.end()};
}

xcb_window_t XcbConnection::createHiddenWindow() const {
    const xcb_window_t window = xcb_generate_id(get());
    xcb_create_window(get(), XCB_COPY_FROM_PARENT, window, root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

} // namespace corvane::x11
