#include "platform/x11/windows/WindowReader.h"

#include "platform/x11/windows/WindowInfoRequest.h"
#include "platform/x11/windows/WindowOwnerRequest.h"

#include <xcb/res.h>

#include <algorithm>
#include <deque>
#include <utility>

namespace corvane::x11 {

namespace {

/// Whether the server tells which process has made a window.
bool reportsProcesses(const XcbConnection &connection) {
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_res_id);
    if (extension == nullptr || extension->present == 0) {
        return false;
    }
    const XcbReply<xcb_res_query_version_reply_t> version(xcb_res_query_version_reply(
        connection.get(), xcb_res_query_version(connection.get(), 1, 2), nullptr));
    return version && (version->server_major > 1 || version->server_minor >= 2);
}

} // namespace

WindowReader::WindowReader(const XcbConnection &connection)
    : connection_(connection),
      atoms_(WindowAtoms::of(connection)),
      knowsClients_(reportsProcesses(connection)) {}

/// A window manager that has crashed leaves its lists behind, but not its own window.
bool WindowReader::isManaged() const {
    const auto manager =
        WindowProperty(connection_, connection_.root(), atoms_.supportingWmCheck).number();
    return manager &&
           WindowProperty(connection_, *manager, atoms_.supportingWmCheck).number() == manager;
}

std::vector<xcb_window_t> WindowReader::windows() const {
    WindowProperty stacking(connection_, connection_.root(), atoms_.clientListStacking);
    WindowProperty mapping(connection_, connection_.root(), atoms_.clientList);
    if (!isManaged()) {
        return topLevelWindows();
    }
    const PropertyValue inStackingOrder = stacking.value();
    auto windows = inStackingOrder.type != XCB_ATOM_NONE ? inStackingOrder.numbers()
                                                         : mapping.value().numbers();
    std::ranges::reverse(windows);
    return windows;
}

std::vector<xcb_window_t> WindowReader::topLevelWindows() const {
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        connection_.get(), xcb_query_tree(connection_.get(), connection_.root()), nullptr));
    if (!tree) {
        return {};
    }
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return {children.rbegin(), children.rend()};
}

std::vector<WindowOwner> WindowReader::owners(std::span<const xcb_window_t> windows) const {
    std::deque<WindowOwnerRequest> requests;
    for (const xcb_window_t window : windows) {
        requests.emplace_back(connection_, atoms_, window, knowsClients_);
    }
    std::vector<WindowOwner> owners;
    owners.reserve(requests.size());
    for (WindowOwnerRequest &request : requests) {
        owners.push_back(request.answer());
    }
    return owners;
}

std::vector<WindowInfo> WindowReader::facts(std::span<const xcb_window_t> windows) const {
    WindowProperty desktop(connection_, connection_.root(), atoms_.currentDesktop);
    std::deque<WindowInfoRequest> requests;
    for (const xcb_window_t window : windows) {
        requests.emplace_back(connection_, atoms_, window);
    }
    std::vector<WindowInfo> facts;
    for (WindowInfoRequest &request : requests) {
        if (auto answer = request.answer(desktop.number())) {
            facts.push_back(std::move(*answer));
        }
    }
    return facts;
}

} // namespace corvane::x11
