#pragma once

#include "platform/wayland/connection/Connection.h"

#include <memory>

namespace corvane::wayland {

/// Presses and releases the left button wherever the pointer is. Sent at once, on one connection.
class ClickDevice {
  public:
    /// By what the compositor offers; null where it offers nothing. The connection outlives the
    /// device.
    static std::unique_ptr<ClickDevice> make(Connection &connection);

    /// Whether the compositor offers one.
    static bool isOffered(const Connection &connection);

    virtual ~ClickDevice() = default;

    /// Whether the compositor has taken the device away.
    virtual bool isLost() const { return false; }

    /// False while a press would come to nothing.
    virtual bool isReady() { return true; }

    virtual void press() = 0;
    virtual void release() = 0;

    /// Has the compositor look anew which surface is beneath the pointer, which stays where it is.
    virtual void refreshFocus() = 0;
};

} // namespace corvane::wayland
