#include "platform/x11/click/PressedButtonRecord.h"

#include <xcb/xtest.h>

#include <array>
#include <deque>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

#include <unistd.h>

namespace corvane::x11 {

namespace {

/// Every record on the server, with the window that carries it.
std::vector<std::pair<xcb_window_t, PressedButtonRecord::Content>>
recordsOn(const XcbConnection &connection) {
    std::deque<std::pair<xcb_window_t, WindowProperty>> requests;
    for (const xcb_window_t window : connection.childrenOf(connection.root())) {
        requests.emplace_back(
            std::piecewise_construct, std::forward_as_tuple(window),
            std::forward_as_tuple(connection, window, connection.atoms().pressedButton));
    }
    std::vector<std::pair<xcb_window_t, PressedButtonRecord::Content>> records;
    for (auto &[window, request] : requests) {
        if (const auto content = PressedButtonRecord::Content::in(request.value())) {
            records.emplace_back(window, *content);
        }
    }
    return records;
}

} // namespace

PressedButtonRecord::PressedButtonRecord(const XcbConnection &connection)
    : connection_(connection),
      window_(connection.createHiddenWindow()) {
    setReleased();
    xcb_set_close_down_mode(connection.get(), XCB_CLOSE_DOWN_RETAIN_TEMPORARY);
}

PressedButtonRecord::~PressedButtonRecord() {
    // A client with retained resources goes on counting as one of the server's clients.
    xcb_set_close_down_mode(connection_.get(), XCB_CLOSE_DOWN_DESTROY_ALL);
    xcb_destroy_window(connection_.get(), window_);
}

void PressedButtonRecord::write(std::uint8_t button) const {
    const std::array values{std::uint32_t{button}, static_cast<std::uint32_t>(getpid())};
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_,
                        connection_.atoms().pressedButton, XCB_ATOM_CARDINAL, 32, values.size(),
                        values.data());
}

std::optional<PressedButtonRecord::Content>
PressedButtonRecord::Content::in(const PropertyValue &property) {
    const auto values = property.numbers();
    if (property.type != XCB_ATOM_CARDINAL || values.size() != 2 ||
        values[0] > std::numeric_limits<std::uint8_t>::max()) {
        return std::nullopt;
    }
    return Content{.button = static_cast<std::uint8_t>(values[0]), .owner = values[1]};
}

bool releaseRecordedButtons(const XcbConnection &connection, std::optional<pid_t> owner) {
    bool wasPressed = false;
    for (const auto &[window, record] : recordsOn(connection)) {
        if (owner && record.owner != static_cast<std::uint32_t>(*owner)) {
            continue;
        }
        if (record.button != PressedButtonRecord::Content::noButton) {
            xcb_test_fake_input(connection.get(), XCB_BUTTON_RELEASE, record.button,
                                XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
            wasPressed = true;
        }
        // Ends the retained client and with it the window.
        xcb_kill_client(connection.get(), window);
    }
    connection.synchronise();
    return wasPressed;
}

} // namespace corvane::x11
