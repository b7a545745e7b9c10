#include "platform/x11/windows/WindowReader.h"

#include "platform/x11/connection/WindowProperty.h"

#include <xcb/res.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

namespace corvane::x11 {

namespace {

/// Whether the server says which process made a window (X-Resource 1.2).
bool reportsProcesses(const XcbConnection &connection) {
    if (connection.extension(xcb_res_id) == nullptr) {
        return false;
    }
    const auto version = reply<xcb_res_query_version_reply>(
        connection.get(), xcb_res_query_version(connection.get(), 1, 2));
    return version && (version->server_major > 1 || version->server_minor >= 2);
}

std::optional<std::uint32_t> processIn(const xcb_res_query_client_ids_reply_t &reply) {
    auto identifiers = xcb_res_query_client_ids_ids_iterator(&reply);
    for (; identifiers.rem > 0; xcb_res_client_id_value_next(&identifiers)) {
        const auto *value = identifiers.data;
        const bool isProcess = (value->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (isProcess && xcb_res_client_id_value_value_length(value) > 0) {
            return *xcb_res_client_id_value_value(value);
        }
    }
    return std::nullopt;
}

/// The requests for one window's owner.
class OwnerRequest {
  public:
    OwnerRequest(const XcbConnection &connection, xcb_window_t window, bool reportsProcesses)
        : connection_(connection),
          window_(window),
          processIdentifier_(connection, window, connection.atoms().processIdentifier),
          windowClass_(connection, window, XCB_ATOM_WM_CLASS) {
        if (reportsProcesses) {
            const xcb_res_client_id_spec_t client{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
            client_ = xcb_res_query_client_ids(connection.get(), 1, &client);
        }
    }

    WindowOwner owner() {
        const OwnerProperties properties{.processIdentifier = processIdentifier_.value(),
                                         .windowClass = windowClass_.value()};
        const auto client =
            client_ ? reply<xcb_res_query_client_ids_reply>(connection_.get(), *client_) : nullptr;
        return properties.owner(window_, client ? processIn(*client) : std::nullopt);
    }

  private:
    const XcbConnection &connection_;
    const xcb_window_t window_;
    WindowProperty processIdentifier_;
    WindowProperty windowClass_;
    std::optional<xcb_res_query_client_ids_cookie_t> client_;
};

/// The requests for what one window is like.
class InfoRequest {
  public:
    InfoRequest(const XcbConnection &connection, xcb_window_t window)
        : connection_(connection),
          window_(window),
          attributes_(xcb_get_window_attributes(connection.get(), window)),
          geometry_(xcb_get_geometry(connection.get(), window)),
          position_(xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0)),
          type_(connection, window, connection.atoms().type),
          state_(connection, window, connection.atoms().state),
          desktop_(connection, window, connection.atoms().desktop),
          managedState_(connection, window, connection.atoms().wmState),
          frameExtents_(connection, window, connection.atoms().frameExtents),
          clientFrameExtents_(connection, window, connection.atoms().clientFrameExtents),
          name_(connection, window, connection.atoms().name),
          oldName_(connection, window, XCB_ATOM_WM_NAME) {}

    std::optional<WindowInfo> info(std::optional<std::uint32_t> currentDesktop) {
        xcb_connection_t *const server = connection_.get();
        const auto attributes = reply<xcb_get_window_attributes_reply>(server, attributes_);
        const auto geometry = reply<xcb_get_geometry_reply>(server, geometry_);
        const auto position = reply<xcb_translate_coordinates_reply>(server, position_);
        // Every reply is taken, also when the first show that the window is gone: discarding
        // thousands of replies takes XCB seconds.
        const WindowProperties properties{.type = type_.value(),
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
        return properties.info({.window = window_,
                                .client = {double(position->dst_x), double(position->dst_y),
                                           double(geometry->width), double(geometry->height)},
                                .isMapped = attributes->map_state != XCB_MAP_STATE_UNMAPPED,
                                .isUnmanaged = attributes->override_redirect != 0},
                               connection_.atoms(), currentDesktop);
    }

  private:
    const XcbConnection &connection_;
    const xcb_window_t window_;
    const xcb_get_window_attributes_cookie_t attributes_;
    const xcb_get_geometry_cookie_t geometry_;
    const xcb_translate_coordinates_cookie_t position_;
    WindowProperty type_;
    WindowProperty state_;
    WindowProperty desktop_;
    WindowProperty managedState_;
    WindowProperty frameExtents_;
    WindowProperty clientFrameExtents_;
    WindowProperty name_;
    WindowProperty oldName_;
};

} // namespace

/// A window manager that has crashed leaves its properties on the root window behind, but not its
/// own window.
xcb_window_t windowManagerWindow(const XcbConnection &connection) {
    const xcb_atom_t check = connection.atoms().supportingWmCheck;
    const auto window = WindowProperty(connection, connection.root(), check).number();
    const bool isAlive = window && WindowProperty(connection, *window, check).number() == window;
    return isAlive ? *window : xcb_window_t{XCB_WINDOW_NONE};
}

WindowReader::WindowReader(const XcbConnection &connection)
    : connection_(connection),
      reportsProcesses_(reportsProcesses(connection)) {}

std::vector<xcb_window_t> WindowReader::windows() const {
    WindowProperty stacking(connection_, connection_.root(),
                            connection_.atoms().clientListStacking);
    WindowProperty mapping(connection_, connection_.root(), connection_.atoms().clientList);
    if (windowManagerWindow(connection_) == XCB_WINDOW_NONE) {
        return topLevelWindows();
    }
    const PropertyValue inStackingOrder = stacking.value();
    auto windows = inStackingOrder.type != XCB_ATOM_NONE ? inStackingOrder.numbers()
                                                         : mapping.value().numbers();
    std::ranges::reverse(windows);
    return windows;
}

std::vector<xcb_window_t> WindowReader::topLevelWindows() const {
    auto windows = connection_.childrenOf(connection_.root());
    std::ranges::reverse(windows);
    return windows;
}

std::vector<WindowOwner> WindowReader::owners(std::span<const xcb_window_t> windows) const {
    std::deque<OwnerRequest> requests;
    for (const xcb_window_t window : windows) {
        requests.emplace_back(connection_, window, reportsProcesses_);
    }
    std::vector<WindowOwner> owners;
    owners.reserve(requests.size());
    for (OwnerRequest &request : requests) {
        owners.push_back(request.owner());
    }
    return owners;
}

std::vector<WindowInfo> WindowReader::info(std::span<const xcb_window_t> windows) const {
    WindowProperty desktop(connection_, connection_.root(), connection_.atoms().currentDesktop);
    std::deque<InfoRequest> requests;
    for (const xcb_window_t window : windows) {
        requests.emplace_back(connection_, window);
    }
    std::vector<WindowInfo> found;
    for (InfoRequest &request : requests) {
        if (auto info = request.info(desktop.number())) {
            found.push_back(std::move(*info));
        }
    }
    return found;
}

} // namespace corvane::x11
