#include "platform/x11/hotkey/GrabbedHotKey.h"

#include <optional>
#include <string_view>
#include <utility>

namespace corvane::x11 {

namespace {

/// Every combination of the bits of `mask`, none and all included.
std::vector<std::uint16_t> subsetsOf(std::uint16_t mask) {
    std::vector<std::uint16_t> subsets;
    std::uint32_t subset = 0;
    do {
        subsets.push_back(static_cast<std::uint16_t>(subset));
        subset = (subset - mask) & mask;
    } while (subset != 0);
    return subsets;
}

/// Where a letter is on a US keyboard: the key to press under a layout that lacks the letter, such
/// as a Cyrillic one. Nothing for what is no letter.
std::optional<xcb_keycode_t> placeOf(char letter) {
    struct Row {
        std::string_view letters;
        xcb_keycode_t first;
    };
    for (const Row &row : {Row{"QWERTYUIOP", 24}, Row{"ASDFGHJKL", 38}, Row{"ZXCVBNM", 52}}) {
        if (const auto index = row.letters.find(letter); index != std::string_view::npos) {
            return static_cast<xcb_keycode_t>(row.first + index);
        }
    }
    return std::nullopt;
}

/// Nothing where the keyboard has no such key.
std::optional<xcb_keycode_t> keyFor(char letter, const KeyboardLayout &layout) {
    const auto place = placeOf(letter);
    if (!place) {
        return std::nullopt;
    }
    // The symbols of Latin letters have their ASCII numbers.
    const auto capital = static_cast<xkb_keysym_t>(letter);
    const auto key = layout.keyFor({capital + (XKB_KEY_a - XKB_KEY_A), capital}).value_or(*place);
    return layout.hasKey(key) ? std::optional(key) : std::nullopt;
}

std::uint16_t modifiersFor(const HotKey &hotKey, const KeyboardLayout &layout) {
    std::uint16_t bits = hotKey.shift ? XCB_MOD_MASK_SHIFT : 0;
    if (hotKey.command) {
        const std::uint16_t super = layout.modifiersFor({XKB_KEY_Super_L, XKB_KEY_Super_R});
        bits |= super != 0 ? super : static_cast<std::uint16_t>(XCB_MOD_MASK_4);
    }
    return bits;
}

/// Nothing where the keyboard has no such key.
std::optional<KeyCombination> combinationFor(const HotKey &hotKey, const KeyboardLayout &layout) {
    const auto key = keyFor(hotKey.letter, layout);
    if (!key) {
        return std::nullopt;
    }
    const std::uint16_t modifiers = modifiersFor(hotKey, layout);
    const auto locks = static_cast<std::uint16_t>(
        XCB_MOD_MASK_LOCK | layout.modifiersFor({XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock}));
    return KeyCombination{.key = *key,
                          .modifiers = modifiers,
                          .ignoredModifiers = static_cast<std::uint16_t>(locks & ~modifiers)};
}

} // namespace

std::expected<std::unique_ptr<KeyGrab>, std::uint8_t>
KeyGrab::grab(const XcbConnection &connection, const KeyCombination &combination) {
    std::unique_ptr<KeyGrab> grab(new KeyGrab(connection, combination)); // NOLINT
    if (const std::uint8_t error = grab->grabAll(); error != 0) {
        return std::unexpected(error);
    }
    return grab;
}

KeyGrab::KeyGrab(const XcbConnection &connection, const KeyCombination &combination)
    : connection_(connection),
      combination_(combination) {}

KeyGrab::~KeyGrab() {
    for (const std::uint16_t modifiers : granted_) {
        xcb_ungrab_key(connection_.get(), combination_.key, connection_.root(), modifiers);
    }
    connection_.flush();
}

/// The code of the first error; 0 for none. All requests go out before the first answer is awaited.
std::uint8_t KeyGrab::grabAll() {
    std::vector<std::pair<std::uint16_t, xcb_void_cookie_t>> requests;
    for (const std::uint16_t ignored : subsetsOf(combination_.ignoredModifiers)) {
        const auto modifiers = static_cast<std::uint16_t>(combination_.modifiers | ignored);
        requests.emplace_back(modifiers,
                              xcb_grab_key_checked(connection_.get(), 0, connection_.root(),
                                                   modifiers, combination_.key, XCB_GRAB_MODE_ASYNC,
                                                   XCB_GRAB_MODE_ASYNC));
    }
    std::uint8_t firstError = 0;
    for (const auto &[modifiers, request] : requests) {
        if (const auto error = connection_.check(request)) {
            firstError = firstError != 0 ? firstError : error->error_code;
        } else {
            granted_.push_back(modifiers);
        }
    }
    return firstError;
}

GrabbedHotKey::GrabbedHotKey(XcbEvents &events, const KeyboardChanges &changes, RawKeys &rawKeys,
                             const HotKey &hotKey, std::function<void()> pressed)
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
        // A key that cannot be grabbed under this layout may be free under the next.
        grab();
    } else if (const auto raw = rawKeys_.follow(event)) {
        handleRaw(*raw);
    } else if (event.response_type == XCB_KEY_RELEASE && isOurKey(key.detail)) {
        isHeld_ = false;
    } else if (event.response_type == XCB_KEY_PRESS && isOurKey(key.detail)) {
        press(key.time, Report::grabbed);
    }
}

/// Where no other program has grabbed the keyboard, the event of the grab comes as well.
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
