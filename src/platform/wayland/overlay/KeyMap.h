#pragma once

#include "platform/OverlayWindows.h"

#include <cstdint>
#include <memory>
#include <xkbcommon/xkbcommon.h>

namespace corvane::wayland {

/// Which key of the user's keyboard layout is which.
class KeyMap {
  public:
    KeyMap();

    /// Takes a layout in xkb's text format from a file of that many bytes.
    void load(int descriptor, std::uint32_t size);

    void setModifiers(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                      std::uint32_t group);

    /// The key as the kernel numbers it.
    platform::Key keyOf(std::uint32_t number) const;

  private:
    struct Release {
        void operator()(xkb_context *context) const { xkb_context_unref(context); }
        void operator()(xkb_keymap *keyMap) const { xkb_keymap_unref(keyMap); }
        void operator()(xkb_state *state) const { xkb_state_unref(state); }
    };

    const std::unique_ptr<xkb_context, Release> context_;
    std::unique_ptr<xkb_state, Release> state_;
};

} // namespace corvane::wayland
