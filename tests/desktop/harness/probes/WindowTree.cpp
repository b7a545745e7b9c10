#include "WindowTree.h"

#include "TextFile.h"
#include "platform/x11/connection/Xcb.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <span>

namespace corvane::desktop {

namespace {

using x11::XcbReply;

std::string textProperty(const DisplayConnection &connection, xcb_window_t window,
                         std::string_view name) {
    constexpr std::uint32_t longest = 1024;
    const auto cookie = xcb_get_property(connection.get(), 0, window, connection.atom(name),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection.get(), cookie, nullptr));
    if (!reply || reply->format != 8) {
        return {};
    }
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::string classOf(const DisplayConnection &connection, xcb_window_t window) {
    const auto parts = split(textProperty(connection, window, "WM_CLASS"), '\0');
    return parts.size() > 1 ? parts[1] : std::string();
}

bool isCorvaneClass(std::string name) {
    std::ranges::transform(name, name.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return name == "corvane";
}

std::optional<Area> areaOf(const DisplayConnection &connection, xcb_window_t window) {
    const auto place = xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0);
    const auto size = xcb_get_geometry(connection.get(), window);
    const XcbReply<xcb_translate_coordinates_reply_t> placeReply(
        xcb_translate_coordinates_reply(connection.get(), place, nullptr));
    const XcbReply<xcb_get_geometry_reply_t> sizeReply(
        xcb_get_geometry_reply(connection.get(), size, nullptr));
    if (!placeReply || !sizeReply) {
        return std::nullopt;
    }
    return Area{placeReply->dst_x, placeReply->dst_y, sizeReply->width, sizeReply->height};
}

/// Nothing for a window that is not on screen or has just gone.
std::optional<SeenWindow> seenWindow(const DisplayConnection &connection, xcb_window_t window) {
    const XcbReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection.get(), xcb_get_window_attributes(connection.get(), window), nullptr));
    const auto area = areaOf(connection, window);
    if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE || !area) {
        return std::nullopt;
    }
    return SeenWindow{.id = window,
                      .className = classOf(connection, window),
                      .title = textProperty(connection, window, "_NET_WM_NAME"),
                      .area = *area,
                      .isOverride = attributes->override_redirect != 0,
                      .isInputOnly = attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY};
}

void addWindowsIn(const DisplayConnection &connection, xcb_window_t parent,
                  std::vector<SeenWindow> &found) {
    const XcbReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), parent), nullptr));
    if (!tree) {
        return;
    }
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    for (const xcb_window_t child : children) {
        if (auto window = seenWindow(connection, child)) {
            found.push_back(*std::move(window));
            addWindowsIn(connection, child, found);
        }
    }
}

} // namespace

std::vector<SeenWindow> windowsOnScreen(const DisplayConnection &connection) {
    std::vector<SeenWindow> found;
    addWindowsIn(connection, connection.root(), found);
    return found;
}

std::vector<SeenWindow> corvaneWindows(const DisplayConnection &connection) {
    std::vector<SeenWindow> found = windowsOnScreen(connection);
    std::erase_if(found,
                  [](const SeenWindow &window) { return !isCorvaneClass(window.className); });
    return found;
}

int corvaneWindowCount(const DisplayConnection &connection) {
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        connection.get(), xcb_query_tree(connection.get(), connection.root()), nullptr));
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return static_cast<int>(std::ranges::count_if(children, [&connection](xcb_window_t window) {
        return isCorvaneClass(classOf(connection, window));
    }));
}

} // namespace corvane::desktop
