#pragma once

#include "platform/wayland/connection/Connection.h"

#include <cstdint>
#include <functional>

namespace corvane::wayland {

/// What the user's pointer and keyboard do on surfaces of this connection; points in the surface's
/// own coordinates. Empty functions are not called.
struct SeatEvents {
    std::function<void(wl_surface *surface, Point point, std::uint32_t serial)> pointerEntered{};
    std::function<void(Point point)> pointerMoved{};
    /// The button as the kernel numbers it; the compositor's time in milliseconds.
    std::function<void(std::uint32_t button, bool isPress, std::uint32_t time)> buttonChanged{};
    /// The keyboard's layout in a file of xkb's text format and of that many bytes.
    std::function<void(int descriptor, std::uint32_t size)> keyMapChanged{};
    std::function<void(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                       std::uint32_t group)>
        modifiersChanged{};
    std::function<void(wl_surface *surface)> keyboardEntered{};
    /// The key as the kernel numbers it.
    std::function<void(std::uint32_t key)> keyPressed{};
};

/// The user's pointer and keyboard, which may come and go. The keyboard is followed only where its
/// keys are handled.
class Seat {
  public:
    /// The connection outlives the seat.
    Seat(const Connection &connection, SeatEvents events);

    Seat(const Seat &) = delete;
    Seat &operator=(const Seat &) = delete;
    ~Seat() = default;

    /// Null while the user has none.
    wl_pointer *pointer() const { return pointer_.get(); }

  private:
    void followDevices(std::uint32_t capabilities);
    void followPointer();
    void followKeyboard();

    const SeatEvents events_;
    const Handle<wl_seat> seat_;
    Handle<wl_pointer> pointer_;
    Handle<wl_keyboard> keyboard_;
};

} // namespace corvane::wayland
