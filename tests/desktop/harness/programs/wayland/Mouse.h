#pragma once

#include "platform/wayland/connection/Connection.h"

#include <memory>

namespace corvane::desktop {

/// A mouse as the hand of a user moves it. As long as it exists the seat has a pointer.
class Mouse {
  public:
    /// By what the compositor offers; null where it offers nothing.
    static std::unique_ptr<Mouse> make(const wayland::Connection &connection);

    virtual ~Mouse() = default;

    /// Global display space.
    virtual void moveTo(Point place) = 0;
    /// The button as the kernel numbers it.
    virtual void change(std::uint32_t button, bool isPress) = 0;
};

} // namespace corvane::desktop
