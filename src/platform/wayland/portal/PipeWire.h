#pragma once

#include <pipewire/pipewire.h>

namespace corvane::wayland::portal {

/// The functions of libpipewire that are used, found when they are first needed, so that the
/// program starts where the library is missing. Named as in the library.
struct PipeWire {
    /// Null where the library is missing or lacks a function. Any thread.
    static const PipeWire *load();

    decltype(&::pw_init) init = nullptr;
    decltype(&::pw_thread_loop_new) thread_loop_new = nullptr;
    decltype(&::pw_thread_loop_destroy) thread_loop_destroy = nullptr;
    decltype(&::pw_thread_loop_start) thread_loop_start = nullptr;
    decltype(&::pw_thread_loop_stop) thread_loop_stop = nullptr;
    decltype(&::pw_thread_loop_get_loop) thread_loop_get_loop = nullptr;
    decltype(&::pw_context_new) context_new = nullptr;
    decltype(&::pw_context_destroy) context_destroy = nullptr;
    decltype(&::pw_context_connect_fd) context_connect_fd = nullptr;
    decltype(&::pw_core_disconnect) core_disconnect = nullptr;
    decltype(&::pw_properties_new) properties_new = nullptr;
    decltype(&::pw_stream_new) stream_new = nullptr;
    decltype(&::pw_stream_add_listener) stream_add_listener = nullptr;
    decltype(&::pw_stream_connect) stream_connect = nullptr;
    decltype(&::pw_stream_update_params) stream_update_params = nullptr;
    decltype(&::pw_stream_dequeue_buffer) stream_dequeue_buffer = nullptr;
    decltype(&::pw_stream_queue_buffer) stream_queue_buffer = nullptr;
    decltype(&::pw_stream_destroy) stream_destroy = nullptr;
};

} // namespace corvane::wayland::portal
