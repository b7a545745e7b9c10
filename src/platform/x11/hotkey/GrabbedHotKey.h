#pragma once

#include "platform/HotKeys.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/KeyGrab.h"
#include "platform/x11/hotkey/KeyboardChanges.h"
#include "platform/x11/hotkey/RawKeys.h"

#include <functional>
#include <memory>
#include <set>

namespace corvane::x11 {

/// One registered hot key. It names its key by the letter, so it moves along when the user changes
/// the keyboard layout.
class GrabbedHotKey : public platform::RegisteredHotKey {
  public:
    /// Calls `pressed` once for each press, however long the key is held.
    GrabbedHotKey(XcbEvents &events, const KeyboardChanges &changes, RawKeys &rawKeys,
                  const HotKey &hotKey, std::function<void()> pressed);

    bool isHeard() const override { return grab_ != nullptr; }

    /// Takes the key of the present layout, unless it is taken already. 0 where that succeeds, else
    /// the X error code.
    platform::HotKeyStatus grab();

  private:
    /// The two ways in which one press may be heard of.
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
