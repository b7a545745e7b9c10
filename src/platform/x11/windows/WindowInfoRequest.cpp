#include "platform/x11/windows/WindowInfoRequest.h"

#include "platform/x11/windows/WindowDescription.h"

namespace corvane::x11 {

namespace {

template <auto ask, typename Cookie>
auto answerOf(const XcbConnection &connection, Cookie cookie) {
    xcb_generic_error_t *error = nullptr;
    auto *reply = ask(connection.get(), cookie, &error);
    const XcbReply<xcb_generic_error_t> ignored(error);
    return XcbReply<std::remove_pointer_t<decltype(reply)>>(reply);
}

} // namespace

WindowInfoRequest::WindowInfoRequest(const XcbConnection &connection, const WindowAtoms &atoms,
                                     xcb_window_t window)
    : connection_(connection),
      atoms_(atoms),
      window_(window),
      attributes_(xcb_get_window_attributes(connection.get(), window)),
      geometry_(xcb_get_geometry(connection.get(), window)),
      position_(xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0)),
      type_(connection, window, atoms.type),
      state_(connection, window, atoms.state),
      desktop_(connection, window, atoms.desktop),
      managedState_(connection, window, atoms.wmState),
      frameExtents_(connection, window, atoms.frameExtents),
      clientFrameExtents_(connection, window, atoms.clientFrameExtents),
      name_(connection, window, atoms.name),
      oldName_(connection, window, XCB_ATOM_WM_NAME) {}

std::optional<WindowInfo> WindowInfoRequest::answer(std::optional<std::uint32_t> currentDesktop) {
    const auto attributes = answerOf<xcb_get_window_attributes_reply>(connection_, attributes_);
    const auto geometry = answerOf<xcb_get_geometry_reply>(connection_, geometry_);
    const auto position = answerOf<xcb_translate_coordinates_reply>(connection_, position_);
    // Every answer is taken, also where the first ones already tell that the window is gone: to
    // give up thousands of them takes XCB seconds.
    const WindowDescription description{.type = type_.value(),
                                        .state = state_.value(),
                                        .desktop = desktop_.value(),
                                        .managedState = managedState_.value(),
                                        .frameExtents = frameExtents_.value(),
                                        .clientFrameExtents = clientFrameExtents_.value(),
                                        .name = name_.value(),
                                        .oldName = oldName_.value()};
    if (!attributes || !geometry || !position ||
        attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY) {
        return std::nullopt;
    }
    return description.facts({.window = window_,
                              .client = {double(position->dst_x), double(position->dst_y),
                                         double(geometry->width), double(geometry->height)},
                              .isMapped = attributes->map_state != XCB_MAP_STATE_UNMAPPED,
                              .isUnmanaged = attributes->override_redirect != 0},
                             atoms_, currentDesktop);
}

} // namespace corvane::x11
