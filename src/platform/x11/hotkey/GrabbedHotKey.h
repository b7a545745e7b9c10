#pragma once

#include "platform/HotKeys.h"
#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/Keyboard.h"
#include "platform/x11/hotkey/RawKeys.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace corvane::x11 {

/// A key combination as the X server knows it.
struct KeyCombination {
    xcb_keycode_t key = 0;
    std::uint16_t modifiers = 0;
    /// Modifiers that may be on or off: Caps Lock, Num Lock, Scroll Lock.
    std::uint16_t ignoredModifiers = 0;

    bool operator==(const KeyCombination &) const = default;

    /// Whether exactly its modifiers are in force.
    bool isWith(std::uint16_t modifiersInForce) const {
        return (modifiersInForce & ~ignoredModifiers) == modifiers;
    }
};

/// Has a combination delivered to this client, whichever window has the keyboard, until destroyed.
class KeyGrab {
  public:
    /// The X error code where another client has the combination. The connection outlives the grab.
    static std::expected<std::unique_ptr<KeyGrab>, std::uint8_t>
    grab(const XcbConnection &connection, const KeyCombination &combination);

    ~KeyGrab();

    KeyGrab(const KeyGrab &) = delete;
    KeyGrab &operator=(const KeyGrab &) = delete;

    const KeyCombination &combination() const { return combination_; }

  private:
    KeyGrab(const XcbConnection &connection, const KeyCombination &combination);

    std::uint8_t grabAll();

    const XcbConnection &connection_;
    const KeyCombination combination_;
    /// Every state of the modifiers for which the server gave us the key.
    std::vector<std::uint16_t> granted_;
};

/// One registered hot key. It names its key by the letter, so it moves along when the user changes
/// the keyboard layout.
class GrabbedHotKey : public platform::RegisteredHotKey {
  public:
    /// Calls `pressed` once for each press, however long the key is held.
    GrabbedHotKey(XcbEvents &events, const KeyboardChanges &changes, RawKeys &rawKeys,
                  const HotKey &hotKey, std::function<void()> pressed);

    bool isHeard() const override { return grab_ != nullptr; }

    /// Grabs the key of the present layout, unless it is grabbed already. 0 where that succeeds,
    /// else the X error code.
    platform::HotKeyStatus grab();

  private:
    /// The two ways in which the server reports a press; it may report one press both ways.
    enum class Report { grabbed, raw };

    void handle(const xcb_generic_event_t &event);
    void handleRaw(const RawKey &event);
    void press(xcb_timestamp_t time, Report report);
    bool isReportedAgain(xcb_timestamp_t time, Report report);
    bool isOurKey(xcb_keycode_t key) const;

    XcbEvents &events_;
    const KeyboardChanges &changes_;
    RawKeys &rawKeys_;
    const HotKey hotKey_;
    const std::function<void()> pressed_;
    std::unique_ptr<KeyGrab> grab_;
    bool isHeld_ = false;
    xcb_timestamp_t lastPress_ = XCB_CURRENT_TIME;
    std::set<Report> reportsOfLastPress_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
