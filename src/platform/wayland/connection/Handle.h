#pragma once

#include "fake-input-client-protocol.h"
#include "viewporter-client-protocol.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"
#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"
#include "xdg-output-unstable-v1-client-protocol.h"

#include <memory>
#include <wayland-client.h>
#include <wayland-cursor.h>

namespace corvane::wayland {

/// Gives protocol objects back to the compositor.
struct Release {
    void operator()(wl_display *display) const { wl_display_disconnect(display); }
    void operator()(wl_registry *registry) const { wl_registry_destroy(registry); }
    void operator()(wl_compositor *compositor) const { wl_compositor_destroy(compositor); }
    void operator()(wl_shm *memory) const { wl_shm_destroy(memory); }
    void operator()(wl_shm_pool *pool) const { wl_shm_pool_destroy(pool); }
    void operator()(wl_buffer *buffer) const { wl_buffer_destroy(buffer); }
    void operator()(wl_surface *surface) const { wl_surface_destroy(surface); }
    void operator()(wl_region *region) const { wl_region_destroy(region); }
    void operator()(wl_output *output) const { wl_output_destroy(output); }
    void operator()(wl_seat *seat) const { wl_seat_destroy(seat); }
    void operator()(wl_pointer *pointer) const { wl_pointer_release(pointer); }
    void operator()(wl_keyboard *keyboard) const { wl_keyboard_release(keyboard); }
    void operator()(wl_cursor_theme *theme) const { wl_cursor_theme_destroy(theme); }
    void operator()(wp_viewporter *viewporter) const { wp_viewporter_destroy(viewporter); }
    void operator()(wp_viewport *viewport) const { wp_viewport_destroy(viewport); }
    void operator()(zxdg_output_manager_v1 *manager) const {
        zxdg_output_manager_v1_destroy(manager);
    }
    void operator()(zxdg_output_v1 *output) const { zxdg_output_v1_destroy(output); }
    void operator()(zwlr_layer_shell_v1 *shell) const { zwlr_layer_shell_v1_destroy(shell); }
    void operator()(zwlr_layer_surface_v1 *surface) const {
        zwlr_layer_surface_v1_destroy(surface);
    }
    void operator()(zwlr_virtual_pointer_manager_v1 *manager) const {
        zwlr_virtual_pointer_manager_v1_destroy(manager);
    }
    void operator()(zwlr_virtual_pointer_v1 *pointer) const {
        zwlr_virtual_pointer_v1_destroy(pointer);
    }
    void operator()(org_kde_kwin_fake_input *input) const {
        org_kde_kwin_fake_input_destroy(input);
    }
};

/// Owns a protocol object. It must go before the connection it belongs to.
template <typename Object>
using Handle = std::unique_ptr<Object, Release>;

} // namespace corvane::wayland
