#include "platform/wayland/overlay/KeyMap.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <sys/mman.h>

namespace corvane::wayland {

KeyMap::KeyMap() : context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS)) {}

void KeyMap::load(int descriptor, std::uint32_t size) {
    void *const text = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (text == MAP_FAILED || !context_) {
        return;
    }
    // The text ends with a zero within its size.
    const std::unique_ptr<xkb_keymap, Release> keyMap(
        xkb_keymap_new_from_buffer(context_.get(), static_cast<const char *>(text), size - 1,
                                   XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
    munmap(text, size);
    if (keyMap) {
        state_.reset(xkb_state_new(keyMap.get()));
    }
}

void KeyMap::setModifiers(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                          std::uint32_t group) {
    if (state_) {
        xkb_state_update_mask(state_.get(), depressed, latched, locked, 0, 0, group);
    }
}

platform::Key KeyMap::keyOf(std::uint32_t number) const {
    // xkb counts from the X protocol's lowest key code.
    constexpr std::uint32_t lowestKeyCode = 8;
    const bool isEscape =
        state_ && xkb_state_key_get_one_sym(state_.get(), number + lowestKeyCode) == XKB_KEY_Escape;
    return isEscape ? platform::Key::escape : platform::Key::other;
}

} // namespace corvane::wayland
