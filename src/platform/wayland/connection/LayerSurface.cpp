#include "platform/wayland/connection/LayerSurface.h"

#include <cstdint>
#include <utility>

namespace corvane::wayland {

LayerSurface::LayerSurface(const Connection &connection, const Output &output, const Traits &traits,
                           std::function<void()> configured, std::function<void()> closed)
    : origin_{output.frame()->x, output.frame()->y},
      configured_(std::move(configured)),
      closed_(std::move(closed)),
      surface_(wl_compositor_create_surface(connection.compositor())),
      layer_(zwlr_layer_shell_v1_get_layer_surface(connection.layerShell(), surface_.get(),
                                                   output.get(), ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY,
                                                   "corvane")) {
    static constexpr zwlr_layer_surface_v1_listener listener{
        .configure =
            [](void *data, zwlr_layer_surface_v1 *layer, std::uint32_t serial, std::uint32_t,
               std::uint32_t) {
                zwlr_layer_surface_v1_ack_configure(layer, serial);
                static_cast<LayerSurface *>(data)->configured_();
            },
        .closed = [](void *data,
                     zwlr_layer_surface_v1 *) { static_cast<LayerSurface *>(data)->closed_(); }};
    zwlr_layer_surface_v1_add_listener(layer_.get(), &listener, this);
    zwlr_layer_surface_v1_set_anchor(layer_.get(), ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP |
                                                       ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    // Panels keep room for themselves; the surface goes over them.
    constexpr int overPanels = -1;
    zwlr_layer_surface_v1_set_exclusive_zone(layer_.get(), overPanels);
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        layer_.get(), traits.takesKeyboard ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE
                                           : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
    if (!traits.takesPointer) {
        const Handle<wl_region> nothing(wl_compositor_create_region(connection.compositor()));
        wl_surface_set_input_region(surface_.get(), nothing.get());
    }
}

void LayerSurface::place(const Rectangle &frame) {
    zwlr_layer_surface_v1_set_size(layer_.get(), static_cast<std::uint32_t>(frame.width),
                                   static_cast<std::uint32_t>(frame.height));
    zwlr_layer_surface_v1_set_margin(layer_.get(), static_cast<int>(frame.y - origin_.y), 0, 0,
                                     static_cast<int>(frame.x - origin_.x));
}

} // namespace corvane::wayland
