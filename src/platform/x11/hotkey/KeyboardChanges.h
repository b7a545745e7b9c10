#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>

namespace corvane::x11 {

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
