#include "platform/wayland/eis/LibEi.h"

#include <optional>

#include <dlfcn.h>

namespace corvane::wayland::eis {

namespace {

template <typename Function>
bool find(void *library, const char *name, Function &function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

std::optional<LibEi> loadLibrary() {
    // Never closed: its functions may be in use until the process ends.
    void *const library = dlopen("libei.so.1", RTLD_NOW | RTLD_LOCAL);
    LibEi functions;
    const bool isComplete =
        library != nullptr && find(library, "ei_new_sender", functions.new_sender) &&
        find(library, "ei_unref", functions.unref) &&
        find(library, "ei_configure_name", functions.configure_name) &&
        find(library, "ei_setup_backend_fd", functions.setup_backend_fd) &&
        find(library, "ei_get_fd", functions.get_fd) &&
        find(library, "ei_dispatch", functions.dispatch) &&
        find(library, "ei_get_event", functions.get_event) &&
        find(library, "ei_now", functions.now) &&
        find(library, "ei_event_unref", functions.event_unref) &&
        find(library, "ei_event_get_type", functions.event_get_type) &&
        find(library, "ei_event_get_seat", functions.event_get_seat) &&
        find(library, "ei_event_get_device", functions.event_get_device) &&
        find(library, "ei_seat_bind_capabilities", functions.seat_bind_capabilities) &&
        find(library, "ei_device_ref", functions.device_ref) &&
        find(library, "ei_device_unref", functions.device_unref) &&
        find(library, "ei_device_has_capability", functions.device_has_capability) &&
        find(library, "ei_device_start_emulating", functions.device_start_emulating) &&
        find(library, "ei_device_button_button", functions.device_button_button) &&
        find(library, "ei_device_frame", functions.device_frame);
    return isComplete ? std::optional(functions) : std::nullopt;
}

} // namespace

const LibEi *LibEi::load() {
    static const std::optional<LibEi> library = loadLibrary();
    return library ? &*library : nullptr;
}

} // namespace corvane::wayland::eis
