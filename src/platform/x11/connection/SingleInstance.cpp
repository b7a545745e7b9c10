#include "platform/x11/connection/SingleInstance.h"

namespace corvane::x11 {

std::unique_ptr<SingleInstance> SingleInstance::claim(const XcbConnection &connection) {
    std::unique_ptr<SingleInstance> instance(new SingleInstance(connection)); // NOLINT
    return instance->claimSelection() ? std::move(instance) : nullptr;
}

SingleInstance::SingleInstance(const XcbConnection &connection)
    : connection_(connection),
      window_(connection_.createHiddenWindow()) {}

/// The server frees a selection whose window is destroyed.
SingleInstance::~SingleInstance() {
    xcb_destroy_window(connection_.get(), window_);
    connection_.flush();
}

/// The server grab keeps every other client out between the look and the claim.
bool SingleInstance::claimSelection() const {
    xcb_grab_server(connection_.get());
    const xcb_atom_t selection = connection_.atoms().instance;
    const bool isFree = connection_.selectionOwner(selection) == XCB_WINDOW_NONE;
    if (isFree) {
        xcb_set_selection_owner(connection_.get(), window_, selection, XCB_CURRENT_TIME);
    }
    xcb_ungrab_server(connection_.get());
    connection_.flush();
    return isFree;
}

} // namespace corvane::x11
