#include "platform/x11/windows/WindowOwnerRequest.h"

#include "platform/x11/windows/WindowDescription.h"

namespace corvane::x11 {

namespace {

xcb_res_query_client_ids_cookie_t askForProcess(const XcbConnection &connection,
                                                xcb_window_t window) {
    const xcb_res_client_id_spec_t question{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    return xcb_res_query_client_ids(connection.get(), 1, &question);
}

} // namespace

WindowOwnerRequest::WindowOwnerRequest(const XcbConnection &connection, const WindowAtoms &atoms,
                                       xcb_window_t window, bool asksServer)
    : connection_(connection),
      window_(window),
      processIdentifier_(connection, window, atoms.processIdentifier),
      windowClass_(connection, window, XCB_ATOM_WM_CLASS) {
    if (asksServer) {
        client_ = askForProcess(connection, window);
    }
}

WindowOwner WindowOwnerRequest::answer() {
    const OwnerDescription description{.processIdentifier = processIdentifier_.value(),
                                       .windowClass = windowClass_.value()};
    return description.owner(window_, processOfClient());
}

std::optional<std::uint32_t> WindowOwnerRequest::processOfClient() const {
    if (!client_) {
        return std::nullopt;
    }
    xcb_generic_error_t *error = nullptr;
    const XcbReply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(connection_.get(), *client_, &error));
    XcbReply<xcb_generic_error_t>(error).reset();
    if (!reply) {
        return std::nullopt;
    }
    auto identifiers = xcb_res_query_client_ids_ids_iterator(reply.get());
    for (; identifiers.rem > 0; xcb_res_client_id_value_next(&identifiers)) {
        const auto *value = identifiers.data;
        const bool isProcess = (value->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (isProcess && xcb_res_client_id_value_value_length(value) > 0) {
            return *xcb_res_client_id_value_value(value);
        }
    }
    return std::nullopt;
}

} // namespace corvane::x11
