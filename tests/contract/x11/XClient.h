#pragma once

#include "DisplayConnection.h"
#include "actors/Keyboard.h"
#include "actors/Pointer.h"
#include "platform/x11/connection/Xcb.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::contract {

/// Another program on the display: what it sees of a back end, and what a user does.
class XClient {
  public:
    XClient();

    const desktop::DisplayConnection &connection() const { return connection_; }
    const desktop::Keyboard &keyboard() const { return keyboard_; }
    const desktop::Pointer &pointer() const { return pointer_; }

    /// Shows a window over the whole screen that receives button events.
    void coverScreen();

    /// The next event, waited for; null when none comes.
    x11::XcbReply<xcb_generic_event_t> nextEvent();

    /// Presses the keys in order and releases them in the opposite one.
    void strike(const std::vector<xcb_keycode_t> &keys);

    /// Makes the layout with that index of the present ones the active one.
    void lockLayout(std::uint8_t index);

    /// Turns modifiers on or off for good, as Caps Lock does.
    void lockModifiers(std::uint8_t mask, bool isOn);

    /// Grabs the pointer so that whatever is done with it is held up until it is thawed.
    void freezePointer();
    void thawPointer();

    std::vector<std::uint8_t> pointerMapping();
    void setPointerMapping(const std::vector<std::uint8_t> &mapping);

    /// Takes a key away from everybody else; the X error code, 0 for none.
    int grabKey(xcb_keycode_t key, std::uint16_t modifiers);
    void giveKeysBack();

  private:
    desktop::DisplayConnection connection_;
    desktop::Keyboard keyboard_{connection_};
    desktop::Pointer pointer_{connection_};
};

/// Gives the keyboard one or more layouts, "us" or "de,ru".
void setLayouts(const std::string &layouts);

} // namespace corvane::contract
