#include "platform/wayland/sway/Windows.h"

#include "platform/wayland/windows/Json.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvane::wayland::sway {

namespace {

using nlohmann::json;

Rectangle rectangleAt(const json &object, const char *key) {
    const json &value = memberOf(object, key);
    return {numberAt(value, "x"), numberAt(value, "y"), numberAt(value, "width"),
            numberAt(value, "height")};
}

Window windowOf(const json &node) {
    const json &x11 = memberOf(node, "window_properties");
    const std::string identifier = textAt(node, "app_id");
    return {.title = textAt(node, "name"),
            .instanceName = identifier.empty() ? textAt(x11, "instance") : identifier,
            .className = identifier.empty() ? textAt(x11, "class") : identifier,
            .processIdentifier = static_cast<std::int32_t>(numberAt(node, "pid")),
            .frame = rectangleAt(node, "rect"),
            .isOnScreen = flagAt(node, "visible")};
}

/// From the rearmost to the front-most. Floating windows lie above tiled ones, and a window that
/// fills the screen above both.
void collect(const json &node, std::vector<Window> &windows, std::vector<Window> &fullscreen) {
    if (memberOf(node, "pid").is_number()) {
        const bool fillsScreen = numberAt(node, "fullscreen_mode") > 0;
        (fillsScreen ? fullscreen : windows).push_back(windowOf(node));
    }
    for (const char *children : {"nodes", "floating_nodes"}) {
        for (const json &child : memberOf(node, children)) {
            collect(child, windows, fullscreen);
        }
    }
}

} // namespace

std::optional<std::vector<Window>> windowsOf(const json &tree) {
    if (!tree.is_object()) {
        return std::nullopt;
    }
    std::vector<Window> windows;
    std::vector<Window> fullscreen;
    collect(tree, windows, fullscreen);
    std::ranges::move(fullscreen, std::back_inserter(windows));
    std::ranges::reverse(windows);
    return windows;
}

/// sway may have been started anew since the last time.
std::optional<std::vector<Window>> Windows::windows() {
    json tree = ipc_ ? ipc_->request(MessageType::getTree) : json(json::value_t::discarded);
    if (tree.is_discarded()) {
        ipc_ = Ipc::open();
        return std::nullopt;
    }
    return windowsOf(tree);
}

} // namespace corvane::wayland::sway
