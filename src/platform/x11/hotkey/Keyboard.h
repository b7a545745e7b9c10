#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <xkbcommon/xkbcommon.h>

namespace corvane::x11 {

/// The keyboard as the X server has it at one moment: its keys and the active layout.
class KeyboardLayout {
  public:
    /// Reads the core keyboard; the layout knows no key where the server does not describe one.
    explicit KeyboardLayout(const XcbConnection &connection);

    /// The key that gives one of `symbols` in the active layout without any modifier.
    std::optional<xcb_keycode_t> keyFor(std::initializer_list<xkb_keysym_t> symbols) const;

    /// Whether the keyboard has a key of that number.
    bool hasKey(xcb_keycode_t key) const;

    /// The modifier bits that keys with one of `symbols` set; 0 for none.
    std::uint16_t modifiersFor(std::initializer_list<xkb_keysym_t> symbols) const;

  private:
    template <auto release>
    struct Release {
        void operator()(auto *object) const { release(object); }
    };
    using Context = std::unique_ptr<xkb_context, Release<xkb_context_unref>>;
    using Keymap = std::unique_ptr<xkb_keymap, Release<xkb_keymap_unref>>;
    using State = std::unique_ptr<xkb_state, Release<xkb_state_unref>>;
    using Modifiers = XcbReply<xcb_get_modifier_mapping_reply_t>;

    bool gives(xcb_keycode_t key, std::initializer_list<xkb_keysym_t> symbols) const;

    Context context_;
    Keymap keymap_;
    State state_;
    Modifiers modifiers_;
};

/// Has the X server report changes of the keyboard to a connection, and knows those reports. Also
/// has a key that is held down repeat presses only, without releases in between.
class KeyboardChanges {
  public:
    explicit KeyboardChanges(const XcbConnection &connection);

    /// Whether the event says that keys, modifiers or the active layout may be others now.
    bool isChange(const xcb_generic_event_t &event) const;

  private:
    static void select(const XcbConnection &connection);

    /// What the keyboard extension calls its events here; 0 where the server lacks it.
    std::uint8_t extensionEvent_ = 0;
};

} // namespace corvane::x11
