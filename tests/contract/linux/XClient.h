#pragma once

#include "platform/linux/XcbConnection.h"
#include "platform/linux/XcbReply.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::contract {

/// Another program on the display: what it sees of a back end, and what a user does.
class XClient {
  public:
    XClient();
    ~XClient();

    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    const x11::XcbConnection &connection() const { return *connection_; }

    /// Shows a window over the whole screen that hears of mouse buttons.
    void coverScreen();

    /// The next event of the window, waited for; null when none comes.
    x11::XcbReply<xcb_generic_event_t> nextEvent();

    /// Waits until the server has done everything asked of it.
    void synchronise();

    void moveCursor(std::int16_t x, std::int16_t y);
    void pressKey(xcb_keycode_t key);
    void releaseKey(xcb_keycode_t key);

    /// Presses the keys in order and releases them in the opposite one.
    void strike(const std::vector<xcb_keycode_t> &keys);

    /// Makes the layout with that index of the present ones the active one.
    void lockLayout(std::uint8_t index);

    /// Turns modifiers on or off for good, as Caps Lock does.
    void lockModifiers(std::uint8_t mask, bool isOn);

    std::vector<std::uint8_t> pointerMapping();
    void setPointerMapping(const std::vector<std::uint8_t> &mapping);

  private:
    std::unique_ptr<x11::XcbConnection> connection_;
};

/// Gives the keyboard one or more layouts, "us" or "de,ru".
void setLayouts(const std::string &layouts);

} // namespace corvane::contract
