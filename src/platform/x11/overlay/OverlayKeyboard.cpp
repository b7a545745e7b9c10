#include "platform/x11/overlay/OverlayKeyboard.h"

#include "platform/x11/connection/Activation.h"
#include "platform/x11/connection/ServerAbilities.h"

#include <algorithm>
#include <utility>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace corvane::x11 {

OverlayKeyboard::OverlayKeyboard(XcbEvents &events)
    : connection_(events.connection()),
      keyboardChanges_(connection_),
      isInsideWayland_(isInsideWayland(connection_)),
      subscription_(events.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
}

void OverlayKeyboard::prepareFor(xcb_window_t window, Handler handler) {
    if (entries_.empty()) {
        formerFocus_ = focus();
        grabEscape();
    }
    std::erase_if(entries_, [window](const Entry &entry) { return entry.window == window; });
    entries_.push_back({window, std::move(handler)});
}

void OverlayKeyboard::takeFrom(xcb_window_t window) {
    const auto entry = std::ranges::find(entries_, window, &Entry::window);
    if (entry == entries_.end()) {
        return;
    }
    entries_.erase(entry);
    const xcb_window_t next = entries_.empty() ? formerFocus_ : entries_.back().window;
    if (focus() == window) {
        setFocus(next);
    }
    if (entries_.empty()) {
        escapeGrab_.reset();
        destroyManagedWindow();
    }
}

void OverlayKeyboard::giveTo(xcb_window_t window) {
    if (isInsideWayland_) {
        activateManagedWindow();
    } else {
        setFocus(window);
    }
}

void OverlayKeyboard::activateManagedWindow() {
    xcb_connection_t *const connection = connection_.get();
    const Atoms &atoms = connection_.atoms();
    if (managedWindow_ == XCB_WINDOW_NONE) {
        // Window managers neither decorate nor list a splash screen.
        constexpr std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
        managedWindow_ = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, managedWindow_, connection_.root(), 0,
                          0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_EVENT_MASK, &events);
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, managedWindow_, atoms.type,
                            XCB_ATOM_ATOM, 32, 1, &atoms.typeSplash);
        xcb_map_window(connection, managedWindow_);
    }
    activate(connection, atoms, managedWindow_);
}

void OverlayKeyboard::destroyManagedWindow() {
    if (managedWindow_ != XCB_WINDOW_NONE) {
        xcb_destroy_window(connection_.get(), std::exchange(managedWindow_, XCB_WINDOW_NONE));
        connection_.flush();
    }
}

/// Where another program has grabbed Escape, it works while an overlay has the focus.
void OverlayKeyboard::grabEscape() {
    escapeGrab_.reset();
    const KeyboardLayout layout(connection_);
    const auto key = layout.keyFor({XKB_KEY_Escape});
    escapeKey_ = key.value_or(0);
    if (key) {
        const std::uint16_t locks = layout.modifiersFor({XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock});
        const KeyCombination escape{
            .key = *key, .ignoredModifiers = static_cast<std::uint16_t>(locks | XCB_MOD_MASK_LOCK)};
        escapeGrab_ = KeyGrab::grab(connection_, escape).value_or(nullptr);
    }
}

xcb_window_t OverlayKeyboard::focus() const {
    const auto focus =
        reply<xcb_get_input_focus_reply>(connection_.get(), xcb_get_input_focus(connection_.get()));
    return focus ? focus->focus : xcb_window_t{XCB_WINDOW_NONE};
}

void OverlayKeyboard::setFocus(xcb_window_t window) const {
    xcb_set_input_focus(connection_.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window,
                        XCB_TIME_CURRENT_TIME);
}

void OverlayKeyboard::handle(const xcb_generic_event_t &event) {
    if (keyboardChanges_.isChange(event) && !entries_.empty()) {
        grabEscape();
    }
    if (XcbEvents::typeOf(event) == XCB_KEY_PRESS && !entries_.empty()) {
        handle(reinterpret_cast<const xcb_key_press_event_t &>(event));
    }
}

void OverlayKeyboard::handle(const xcb_key_press_event_t &press) {
    const bool isEscape = press.detail == escapeKey_;
    const bool isForOverlay =
        (press.event == managedWindow_ && managedWindow_ != XCB_WINDOW_NONE) ||
        std::ranges::find(entries_, press.event, &Entry::window) != entries_.end();
    if (isForOverlay || (isEscape && press.event == connection_.root())) {
        const Handler handler = entries_.back().handler;
        handler(isEscape ? platform::Key::escape : platform::Key::other);
    }
}

} // namespace corvane::x11
