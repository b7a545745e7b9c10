#pragma once

#include "DisplayConnection.h"

#include <xcb/xcb_keysyms.h>

#include <memory>
#include <vector>

namespace corvane::desktop {

/// The keyboard, used as hardware would be. Every call returns when the server has carried it out.
class Keyboard {
  public:
    /// The key that carries Y on a keyboard with United States labels.
    static constexpr xcb_keycode_t physicalY = 29;
    /// The key that carries Y on a German keyboard.
    static constexpr xcb_keycode_t physicalZ = 52;

    /// The connection outlives it.
    explicit Keyboard(const DisplayConnection &connection) : connection_(connection) {}

    void press(xcb_keycode_t key) const;
    void release(xcb_keycode_t key) const;
    void tap(xcb_keycode_t key) const;

    /// The key that carries the symbol in the layout in force; throws when there is none.
    xcb_keycode_t keyOf(xcb_keysym_t symbol) const;

    /// Presses and releases Super, Shift and the key.
    void pressHotKey(xcb_keycode_t key = physicalY) const;
    /// Presses the combination and keeps it down.
    void holdHotKey(xcb_keycode_t key = physicalY) const;
    void releaseHotKey(xcb_keycode_t key = physicalY) const;

    /// Which modifiers and locks are in force, as in the state of an X event.
    std::uint16_t state() const;

  private:
    const DisplayConnection &connection_;
};

} // namespace corvane::desktop
