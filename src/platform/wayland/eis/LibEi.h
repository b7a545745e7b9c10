#pragma once

#include <cstdint>

// Opaque types of libei.
struct ei;
struct ei_device;
struct ei_event;
struct ei_seat;

namespace corvane::wayland::eis {

/// The functions of libei that are used, found when they are first needed, so that the program
/// starts where the library is missing. They are declared here, because Debian 12 has no libei.
struct LibEi {
    /// Null where the library is missing or lacks a function. Any thread.
    static const LibEi *load();

    // Types of events.
    static constexpr int disconnected = 2;
    static constexpr int seatAdded = 3;
    static constexpr int deviceAdded = 5;
    static constexpr int deviceRemoved = 6;
    static constexpr int devicePaused = 7;
    static constexpr int deviceResumed = 8;

    // Capabilities of devices.
    static constexpr int movesPointer = 1 << 0;
    static constexpr int pressesButtons = 1 << 5;

    // Named as in the library.
    ei *(*new_sender)(void *userData) = nullptr;
    ei *(*unref)(ei *context) = nullptr;
    void (*configure_name)(ei *context, const char *name) = nullptr;
    /// 0 for success. The context owns the socket from then on.
    int (*setup_backend_fd)(ei *context, int socket) = nullptr;
    int (*get_fd)(ei *context) = nullptr;
    void (*dispatch)(ei *context) = nullptr;
    /// Null when there is none; to be given back with event_unref.
    ei_event *(*get_event)(ei *context) = nullptr;
    /// Microseconds of the monotonic clock.
    std::uint64_t (*now)(ei *context) = nullptr;
    ei_event *(*event_unref)(ei_event *event) = nullptr;
    int (*event_get_type)(ei_event *event) = nullptr;
    ei_seat *(*event_get_seat)(ei_event *event) = nullptr;
    ei_device *(*event_get_device)(ei_event *event) = nullptr;
    /// The list of capabilities ends with a null pointer.
    void (*seat_bind_capabilities)(ei_seat *seat, ...) = nullptr;
    ei_device *(*device_ref)(ei_device *device) = nullptr;
    ei_device *(*device_unref)(ei_device *device) = nullptr;
    bool (*device_has_capability)(ei_device *device, int capability) = nullptr;
    /// The sequence number goes up with each call.
    void (*device_start_emulating)(ei_device *device, std::uint32_t sequence) = nullptr;
    void (*device_button_button)(ei_device *device, std::uint32_t button, bool isPress) = nullptr;
    void (*device_frame)(ei_device *device, std::uint64_t time) = nullptr;
};

} // namespace corvane::wayland::eis
