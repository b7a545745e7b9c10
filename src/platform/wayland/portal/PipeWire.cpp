#include "platform/wayland/portal/PipeWire.h"

#include "support/Log.h"

#include <optional>
#include <string>

#include <dlfcn.h>

namespace corvane::wayland::portal {

namespace {

template <typename Function>
bool find(void *library, const char *name, Function &function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

std::optional<PipeWire> loadLibrary() {
    // Never closed: the library keeps threads and plug-ins of its own.
    void *const library = dlopen("libpipewire-0.3.so.0", RTLD_NOW | RTLD_LOCAL);
    PipeWire functions;
    const bool isComplete =
        library != nullptr && find(library, "pw_init", functions.init) &&
        find(library, "pw_thread_loop_new", functions.thread_loop_new) &&
        find(library, "pw_thread_loop_destroy", functions.thread_loop_destroy) &&
        find(library, "pw_thread_loop_start", functions.thread_loop_start) &&
        find(library, "pw_thread_loop_stop", functions.thread_loop_stop) &&
        find(library, "pw_thread_loop_get_loop", functions.thread_loop_get_loop) &&
        find(library, "pw_context_new", functions.context_new) &&
        find(library, "pw_context_destroy", functions.context_destroy) &&
        find(library, "pw_context_connect_fd", functions.context_connect_fd) &&
        find(library, "pw_core_disconnect", functions.core_disconnect) &&
        find(library, "pw_properties_new", functions.properties_new) &&
        find(library, "pw_stream_new", functions.stream_new) &&
        find(library, "pw_stream_add_listener", functions.stream_add_listener) &&
        find(library, "pw_stream_connect", functions.stream_connect) &&
        find(library, "pw_stream_update_params", functions.stream_update_params) &&
        find(library, "pw_stream_dequeue_buffer", functions.stream_dequeue_buffer) &&
        find(library, "pw_stream_queue_buffer", functions.stream_queue_buffer) &&
        find(library, "pw_stream_destroy", functions.stream_destroy);
    if (!isComplete) {
        const char *reason = dlerror(); // NOLINT(concurrency-mt-unsafe)
        log("libpipewire cannot be loaded: " + std::string(reason != nullptr ? reason : ""));
        return std::nullopt;
    }
    functions.init(nullptr, nullptr);
    return functions;
}

} // namespace

const PipeWire *PipeWire::load() {
    static const std::optional<PipeWire> library = loadLibrary();
    return library ? &*library : nullptr;
}

} // namespace corvane::wayland::portal
