#include "platform/x11/hotkey/GrabbedHotKey.h"

#include "platform/x11/hotkey/KeyboardLayout.h"

#include <optional>
#include <utility>

namespace corvane::x11 {

namespace {

/// The numbers in which the program names its hot key.
constexpr std::uint32_t letterY = 16;
constexpr std::uint32_t commandModifier = 0x100;
constexpr std::uint32_t shiftModifier = 0x200;

/// Where the letter stands on the keyboard the numbers were made for; the key to press under a
/// layout that has no such letter.
constexpr xcb_keycode_t placeOfLetterY = 29;

std::uint16_t modifiersFor(std::uint32_t modifiers, const KeyboardLayout &layout) {
    std::uint16_t bits = 0;
    if ((modifiers & shiftModifier) != 0) {
        bits |= XCB_MOD_MASK_SHIFT;
    }
    if ((modifiers & commandModifier) != 0) {
        const std::uint16_t super = layout.modifiersFor({XKB_KEY_Super_L, XKB_KEY_Super_R});
        bits |= super != 0 ? super : static_cast<std::uint16_t>(XCB_MOD_MASK_4);
    }
    return bits;
}

/// Nothing where the keyboard has no such key.
std::optional<KeyCombination> combinationFor(const platform::HotKey &hotKey,
                                             const KeyboardLayout &layout) {
    const xcb_keycode_t key = layout.keyFor({XKB_KEY_y, XKB_KEY_Y}).value_or(placeOfLetterY);
    if (hotKey.keyCode != letterY || !layout.hasKey(key)) {
        return std::nullopt;
    }
    const std::uint16_t modifiers = modifiersFor(hotKey.modifiers, layout);
    const auto locks = static_cast<std::uint16_t>(
        XCB_MOD_MASK_LOCK | layout.modifiersFor({XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock}));
    return KeyCombination{.key = key,
                          .modifiers = modifiers,
                          .ignoredModifiers = static_cast<std::uint16_t>(locks & ~modifiers)};
}

} // namespace

GrabbedHotKey::GrabbedHotKey(XcbEvents &events, const KeyboardChanges &changes, RawKeys &rawKeys,
                             const platform::HotKey &hotKey, std::function<void()> pressed)
    : events_(events),
      changes_(changes),
      rawKeys_(rawKeys),
      hotKey_(hotKey),
      pressed_(std::move(pressed)),
      subscription_(events.subscribe([this](const auto &event) { handle(event); })) {}

platform::HotKeyStatus GrabbedHotKey::grab() {
    const auto wanted = combinationFor(hotKey_, KeyboardLayout(events_.connection()));
    if (wanted && grab_ && *wanted == grab_->combination()) {
        return 0;
    }
    grab_.reset();
    isHeld_ = false;
    if (!wanted) {
        return XCB_VALUE;
    }
    auto grab = KeyGrab::grab(events_.connection(), *wanted);
    if (!grab) {
        return grab.error();
    }
    grab_ = std::move(*grab);
    return 0;
}

void GrabbedHotKey::handle(const xcb_generic_event_t &event) {
    // In key events, which all have the same form, the detail is the key.
    const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(event);
    if (changes_.isChange(event)) {
        // A key that is not to be had now may be to be had under the next layout.
        grab();
    } else if (const auto raw = rawKeys_.follow(event)) {
        handleRaw(*raw);
    } else if (event.response_type == XCB_KEY_RELEASE && isOurKey(key.detail)) {
        isHeld_ = false;
    } else if (event.response_type == XCB_KEY_PRESS && isOurKey(key.detail)) {
        press(key.time, Report::grabbed);
    }
}

/// Comes beside the event of the grab where the grab is not kept out.
void GrabbedHotKey::handleRaw(const RawKey &event) {
    if (!isOurKey(event.key)) {
        return;
    }
    if (!event.isPress) {
        isHeld_ = false;
    } else if (grab_->combination().isWith(event.modifiers)) {
        press(event.time, Report::raw);
    }
}

void GrabbedHotKey::press(xcb_timestamp_t time, Report report) {
    if (isReportedAgain(time, report) || std::exchange(isHeld_, true)) {
        return;
    }
    lastPress_ = time;
    reportsOfLastPress_ = {report};
    pressed_();
}

/// The second report of a press may come long after the key has been released. A press of the same
/// millisecond that is reported the same way is another one.
bool GrabbedHotKey::isReportedAgain(xcb_timestamp_t time, Report report) {
    return time == lastPress_ && reportsOfLastPress_.insert(report).second;
}

bool GrabbedHotKey::isOurKey(xcb_keycode_t key) const {
    return grab_ && key == grab_->combination().key;
}

} // namespace corvane::x11
