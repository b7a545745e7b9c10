#include "platform/wayland/connection/Seat.h"

#include <utility>

#include <unistd.h>

namespace corvane::wayland {

namespace {

const SeatEvents &eventsOf(void *data) { return *static_cast<const SeatEvents *>(data); }

template <typename Function, typename... Arguments>
void call(const Function &function, Arguments... arguments) {
    if (function) {
        function(arguments...);
    }
}

Point pointOf(wl_fixed_t x, wl_fixed_t y) { return {wl_fixed_to_double(x), wl_fixed_to_double(y)}; }

} // namespace

Seat::Seat(const Connection &connection, SeatEvents events)
    : events_(std::move(events)),
      seat_(connection.bindSeat()) {
    static constexpr wl_seat_listener listener{
        .capabilities =
            [](void *data, wl_seat *, std::uint32_t capabilities) {
                static_cast<Seat *>(data)->followDevices(capabilities);
            },
        .name = [](void *, wl_seat *, const char *) {}};
    if (seat_) {
        wl_seat_add_listener(seat_.get(), &listener, this);
    }
}

void Seat::followDevices(std::uint32_t capabilities) {
    if ((capabilities & WL_SEAT_CAPABILITY_POINTER) == 0) {
        pointer_.reset();
    } else if (!pointer_) {
        followPointer();
    }
    if ((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) == 0) {
        keyboard_.reset();
    } else if (!keyboard_ && events_.keyPressed) {
        followKeyboard();
    }
}

void Seat::followPointer() {
    static constexpr wl_pointer_listener listener{
        .enter =
            [](void *data, wl_pointer *, std::uint32_t serial, wl_surface *surface, wl_fixed_t x,
               wl_fixed_t y) {
                // A surface that is being destroyed is null.
                if (surface != nullptr) {
                    call(eventsOf(data).pointerEntered, surface, pointOf(x, y), serial);
                }
            },
        .leave = [](void *, wl_pointer *, std::uint32_t, wl_surface *) {},
        .motion = [](void *data, wl_pointer *, std::uint32_t, wl_fixed_t x,
                     wl_fixed_t y) { call(eventsOf(data).pointerMoved, pointOf(x, y)); },
        .button =
            [](void *data, wl_pointer *, std::uint32_t, std::uint32_t time, std::uint32_t button,
               std::uint32_t state) {
                call(eventsOf(data).buttonChanged, button, state == WL_POINTER_BUTTON_STATE_PRESSED,
                     time);
            },
        .axis = [](void *, wl_pointer *, std::uint32_t, std::uint32_t, wl_fixed_t) {},
        .frame = [](void *, wl_pointer *) {},
        .axis_source = [](void *, wl_pointer *, std::uint32_t) {},
        .axis_stop = [](void *, wl_pointer *, std::uint32_t, std::uint32_t) {},
        .axis_discrete = [](void *, wl_pointer *, std::uint32_t, std::int32_t) {},
        .axis_value120 = [](void *, wl_pointer *, std::uint32_t, std::int32_t) {}};
    pointer_.reset(wl_seat_get_pointer(seat_.get()));
    wl_pointer_add_listener(pointer_.get(), &listener, const_cast<SeatEvents *>(&events_));
}

void Seat::followKeyboard() {
    static constexpr wl_keyboard_listener listener{
        .keymap =
            [](void *data, wl_keyboard *, std::uint32_t format, std::int32_t descriptor,
               std::uint32_t size) {
                if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1) {
                    call(eventsOf(data).keyMapChanged, descriptor, size);
                }
                close(descriptor);
            },
        .enter = [](void *data, wl_keyboard *, std::uint32_t, wl_surface *surface,
                    wl_array *) { call(eventsOf(data).keyboardEntered, surface); },
        .leave = [](void *data, wl_keyboard *, std::uint32_t,
                    wl_surface *) { call(eventsOf(data).keyboardEntered, nullptr); },
        .key =
            [](void *data, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t key,
               std::uint32_t state) {
                if (state == WL_KEYBOARD_KEY_STATE_PRESSED) {
                    call(eventsOf(data).keyPressed, key);
                }
            },
        .modifiers =
            [](void *data, wl_keyboard *, std::uint32_t, std::uint32_t depressed,
               std::uint32_t latched, std::uint32_t locked, std::uint32_t group) {
                call(eventsOf(data).modifiersChanged, depressed, latched, locked, group);
            },
        .repeat_info = [](void *, wl_keyboard *, std::int32_t, std::int32_t) {}};
    keyboard_.reset(wl_seat_get_keyboard(seat_.get()));
    wl_keyboard_add_listener(keyboard_.get(), &listener, const_cast<SeatEvents *>(&events_));
}

} // namespace corvane::wayland
