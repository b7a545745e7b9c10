#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/KeyGrab.h"
#include "platform/linux/KeyboardChanges.h"
#include "platform/linux/XcbEvents.h"

#include <functional>
#include <memory>

namespace corvane::x11 {

/// One registered hot key. It names its key by the letter, so it moves along when the user changes
/// the keyboard layout.
class GrabbedHotKey : public platform::HotKeyReference {
  public:
    /// Calls `pressed` once for each press, however long the key is held.
    GrabbedHotKey(XcbEvents &events, const KeyboardChanges &changes, const platform::HotKey &hotKey,
                  std::function<void()> pressed);

    /// Takes the key of the present layout, unless it is taken already. 0 where that succeeds, else
    /// the X error code.
    platform::HotKeyStatus grab();

  private:
    void handle(const xcb_generic_event_t &event);
    bool isOurKey(const xcb_generic_event_t &event) const;

    XcbEvents &events_;
    const KeyboardChanges &changes_;
    const platform::HotKey hotKey_;
    const std::function<void()> pressed_;
    std::unique_ptr<KeyGrab> grab_;
    bool isHeld_ = false;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
