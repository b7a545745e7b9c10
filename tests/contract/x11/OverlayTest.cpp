#include "OverlayTest.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace corvane::contract {

OverlayTest::OverlayTest(bool hasCompositor)
    : WindowSystemTest({.width = 800,
                        .height = static_cast<std::uint16_t>(screenHeight),
                        .windowManager = desktop::WindowManager::none,
                        .hasCompositor = hasCompositor}),
      backdrop_(
          desktop_.connection(),
          {.x = 0, .y = 0, .width = 800, .height = static_cast<std::uint16_t>(screenHeight)}) {
    backdrop_.setColour(background.red, background.green, background.blue);
    backdrop_.map();
    if (!turnUntilPixel({400, 300}, isBackground)) {
        ADD_FAILURE() << "the desktop does not come up";
    }
    if (hasCompositor) {
        waitForBlending();
    }
}

/// A compositing manager announces itself before it begins.
void OverlayTest::waitForBlending() {
    auto probe = overlays_.create({.frame = {390, 290, 20, 20}}, {});
    probe->setDrawing({Shape{.path = {.bounds = {0, 0, 20, 20}}, .fill = faintGreen}});
    probe->orderFront();
    const bool isBlended = turnUntilPixel({400, 300}, isFaintlyGreen);
    probe.reset();
    if (!isBlended || !turnUntilPixel({400, 300}, isBackground)) {
        ADD_FAILURE() << "the compositing manager does not work";
    }
}

bool OverlayTest::turnUntilScreen(const std::function<bool(const Screenshot &)> &condition) {
    return turnUntil([&] { return condition(screenshot()); });
}

bool OverlayTest::turnUntilPixel(Position position, const std::function<bool(Pixel)> &condition) {
    return turnUntilScreen(
        [&](const Screenshot &screen) { return condition(screen.at(position)); });
}

std::vector<xcb_window_t> OverlayTest::topLevelWindows() const {
    xcb_connection_t *const connection = desktop_.connection().get();
    const x11::XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        connection, xcb_query_tree(connection, desktop_.connection().root()), nullptr));
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return {children.begin(), children.end()};
}

bool OverlayTest::isOurs(xcb_window_t window) const {
    const xcb_setup_t *setup = xcb_get_setup(events_.connection().get());
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

std::vector<xcb_window_t> OverlayTest::shownOverlays() const {
    events_.connection().synchronise();
    xcb_connection_t *const connection = desktop_.connection().get();
    std::vector<xcb_window_t> shown;
    for (const xcb_window_t window : topLevelWindows()) {
        const x11::XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(
                connection, xcb_get_window_attributes(connection, window), nullptr));
        if (isOurs(window) && attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE) {
            shown.push_back(window);
        }
    }
    return shown;
}

std::size_t OverlayTest::windowCount() const {
    events_.connection().synchronise();
    const auto windows = topLevelWindows();
    return static_cast<std::size_t>(
        std::ranges::count_if(windows, [this](xcb_window_t window) { return isOurs(window); }));
}

} // namespace corvane::contract
