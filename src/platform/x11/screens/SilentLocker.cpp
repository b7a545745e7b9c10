#include "platform/x11/screens/SilentLocker.h"

#include "platform/x11/connection/WindowProperty.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <utility>
#include <vector>

namespace corvane::x11 {

namespace {

constexpr std::chrono::milliseconds interval(200);

/// A window under the root window, as the server knows it.
struct Sheet {
    bool isVisible = false;
    bool isUnmanaged = false;
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

Sheet sheetOf(const xcb_get_window_attributes_reply_t &attributes,
              const xcb_get_geometry_reply_t &geometry) {
    const int border = 2 * geometry.border_width;
    return {.isVisible = attributes.map_state == XCB_MAP_STATE_VIEWABLE,
            .isUnmanaged = attributes.override_redirect != 0,
            .left = geometry.x,
            .top = geometry.y,
            .right = geometry.x + geometry.width + border,
            .bottom = geometry.y + geometry.height + border};
}

/// A line at the edge may be left free, which keeps compositors from taking away what is below.
bool covers(const Sheet &sheet, const Sheet &screen) {
    constexpr int line = 1;
    return sheet.left <= screen.left + line && sheet.top <= screen.top + line &&
           sheet.right >= screen.right - line && sheet.bottom >= screen.bottom - line;
}

/// Windows that have gone meanwhile show nothing.
std::vector<Sheet> sheetsOf(const XcbConnection &connection,
                            std::span<const xcb_window_t> windows) {
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> questions;
    questions.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        questions.emplace_back(xcb_get_window_attributes(connection.get(), window),
                               xcb_get_geometry(connection.get(), window));
    }
    std::vector<Sheet> sheets;
    sheets.reserve(windows.size());
    for (const auto &[attributesCookie, geometryCookie] : questions) {
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(connection.get(), attributesCookie, nullptr));
        const XcbReply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(connection.get(), geometryCookie, nullptr));
        sheets.push_back(attributes && geometry ? sheetOf(*attributes, *geometry) : Sheet());
    }
    return sheets;
}

/// From the lowest to the highest.
std::vector<xcb_window_t> childrenOf(const XcbConnection &connection, xcb_window_t window) {
    const XcbReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), window), nullptr));
    if (!tree) {
        return {};
    }
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return {children.begin(), children.end()};
}

} // namespace

SilentLocker::SilentLocker(const XcbConnection &connection,
                           std::function<void(bool isLocked)> changed)
    : connection_(connection),
      changed_(std::move(changed)),
      managedState_(connection.atom("WM_STATE")),
      neverShown_(xcb_generate_id(connection.get())) {
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, neverShown_, connection.root(), 0, 0,
                      1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
}

SilentLocker::~SilentLocker() { xcb_destroy_window(connection_.get(), neverShown_); }

void SilentLocker::watch(bool isWatching) {
    isWatching_ = isWatching;
    if (isWatching) {
        // What is there already is found at once.
        timer_.start(std::chrono::milliseconds(0));
    } else if (!isLocked_) {
        timer_.stop();
    }
}

void SilentLocker::look() {
    const bool isLockedNow = isInputTaken() && isScreenCovered();
    if (isLockedNow || isWatching_) {
        timer_.start(interval);
    } else {
        timer_.stop();
    }
    if (std::exchange(isLocked_, isLockedNow) != isLockedNow) {
        changed_(isLockedNow);
    }
}

/// Nothing can be grabbed for a window that is not shown. The server says so only where nobody else
/// has grabbed it, and so the question itself takes nothing from anybody.
bool SilentLocker::isInputTaken() const {
    const auto keyboardCookie =
        xcb_grab_keyboard(connection_.get(), 0, neverShown_, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                          XCB_GRAB_MODE_ASYNC);
    const auto pointerCookie =
        xcb_grab_pointer(connection_.get(), 0, neverShown_, 0, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const XcbReply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(connection_.get(), keyboardCookie, nullptr));
    const XcbReply<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(connection_.get(), pointerCookie, nullptr));
    return keyboard && keyboard->status == XCB_GRAB_STATUS_ALREADY_GRABBED && pointer &&
           pointer->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

/// Small windows may lie over a locker's, such as the notice of another program. Whatever lies
/// below a managed window, such as a fullscreen one, locks nothing.
bool SilentLocker::isScreenCovered() const {
    const auto windows = childrenOf(connection_, connection_.root());
    const auto sheets = sheetsOf(connection_, windows);
    const Sheet screen = sheetsOf(connection_, std::array{connection_.root()}).front();
    for (auto index = windows.size(); index-- > 0;) {
        const Sheet &sheet = sheets[index];
        if (!sheet.isVisible || isOwn(windows[index])) {
            continue;
        }
        // Window managers put a window and its frame into one of theirs or into two.
        constexpr int mostFrames = 3;
        if (!sheet.isUnmanaged || holdsManagedWindow(windows[index], mostFrames)) {
            return false;
        }
        if (covers(sheet, screen)) {
            return true;
        }
    }
    return false;
}

/// Our own overlays, and what the server itself made for the compositor.
bool SilentLocker::isOwn(xcb_window_t window) const {
    const xcb_setup_t &setup = *xcb_get_setup(connection_.get());
    const xcb_window_t clientBits = 0x1FFFFFFF & ~setup.resource_id_mask;
    const xcb_window_t client = window & clientBits;
    return client == 0 || client == (setup.resource_id_base & clientBits);
}

bool SilentLocker::holdsManagedWindow(xcb_window_t window, int depth) const {
    if (depth == 0) {
        return false;
    }
    return std::ranges::any_of(childrenOf(connection_, window), [&](xcb_window_t child) {
        WindowProperty state(connection_, child, managedState_);
        return state.value().type != XCB_ATOM_NONE || holdsManagedWindow(child, depth - 1);
    });
}

} // namespace corvane::x11
