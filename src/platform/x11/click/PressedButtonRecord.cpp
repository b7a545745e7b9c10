#include "platform/x11/click/PressedButtonRecord.h"

#include "platform/x11/click/PressedButtonValue.h"
#include "platform/x11/connection/WindowProperty.h"

#include <xcb/xtest.h>

#include <array>
#include <deque>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

#include <unistd.h>

namespace corvane::x11 {

namespace {

constexpr std::string_view propertyName = "_CORVANE_PRESSED_BUTTON";

void writeMark(const XcbConnection &connection, xcb_window_t window, xcb_atom_t property,
               std::uint8_t button) {
    const std::array values{std::uint32_t{button}, static_cast<std::uint32_t>(getpid())};
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, property,
                        XCB_ATOM_CARDINAL, 32, values.size(), values.data());
}

/// The windows under the root window that carry a mark.
std::vector<std::pair<xcb_window_t, ButtonMarkValue>> marksOn(const XcbConnection &connection) {
    const xcb_atom_t property = connection.atom(propertyName);
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        connection.get(), xcb_query_tree(connection.get(), connection.root()), nullptr));
    if (!tree) {
        return {};
    }
    std::deque<std::pair<xcb_window_t, WindowProperty>> questions;
    for (const xcb_window_t window :
         std::span(xcb_query_tree_children(tree.get()),
                   static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())))) {
        questions.emplace_back(std::piecewise_construct, std::forward_as_tuple(window),
                               std::forward_as_tuple(connection, window, property));
    }
    std::vector<std::pair<xcb_window_t, ButtonMarkValue>> marks;
    for (auto &[window, question] : questions) {
        if (const auto mark = ButtonMarkValue::in(question.value())) {
            marks.emplace_back(window, *mark);
        }
    }
    return marks;
}

} // namespace

/// The window is never shown, and nobody is told of its property.
ButtonMark::ButtonMark(const XcbConnection &connection)
    : connection_(connection),
      property_(connection.atom(propertyName)),
      window_(xcb_generate_id(connection.get())) {
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window_, connection.root(), 0, 0, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    writeMark(connection, window_, property_, ButtonMarkValue::noButton);
    xcb_set_close_down_mode(connection.get(), XCB_CLOSE_DOWN_RETAIN_TEMPORARY);
}

ButtonMark::~ButtonMark() {
    // A client whose resources are kept keeps its place among the server's clients too.
    xcb_set_close_down_mode(connection_.get(), XCB_CLOSE_DOWN_DESTROY_ALL);
    xcb_destroy_window(connection_.get(), window_);
}

void ButtonMark::setPressed(std::uint8_t button) const {
    writeMark(connection_, window_, property_, button);
}

void ButtonMark::setReleased() const {
    writeMark(connection_, window_, property_, ButtonMarkValue::noButton);
}

bool releaseMarkedButtons(const XcbConnection &connection, std::optional<pid_t> owner) {
    bool wasPressed = false;
    for (const auto &[window, mark] : marksOn(connection)) {
        if (owner && mark.owner != static_cast<std::uint32_t>(*owner)) {
            continue;
        }
        if (mark.button != ButtonMarkValue::noButton) {
            xcb_test_fake_input(connection.get(), XCB_BUTTON_RELEASE, mark.button, XCB_CURRENT_TIME,
                                XCB_NONE, 0, 0, 0);
            wasPressed = true;
        }
        xcb_kill_client(connection.get(), window);
    }
    connection.synchronise();
    return wasPressed;
}

} // namespace corvane::x11
