#pragma once

#include "platform/wayland/connection/Connection.h"

#include <functional>

namespace corvane::wayland {

/// A surface above all windows of an output, fullscreen windows included. It has no content of its
/// own: its owner attaches buffers and commits.
class LayerSurface {
  public:
    struct Traits {
        /// Whether it takes the pointer from what lies beneath.
        bool takesPointer = false;
        bool takesKeyboard = false;
    };

    /// Calls `configured` when the compositor allows a buffer to be attached, and `closed` when the
    /// output has gone; the owner then destroys the surface, not from within the call. The
    /// connection, which offers the layer shell, outlives the surface.
    LayerSurface(const Connection &connection, const Output &output, const Traits &traits,
                 std::function<void()> configured, std::function<void()> closed);

    LayerSurface(const LayerSurface &) = delete;
    LayerSurface &operator=(const LayerSurface &) = delete;
    ~LayerSurface() = default;

    wl_surface *get() const { return surface_.get(); }

    /// In global display space and whole logical pixels; may reach beyond the output. Takes effect
    /// with the next commit.
    void place(const Rectangle &frame);

  private:
    /// Of the output in global display space.
    const Point origin_;
    const std::function<void()> configured_;
    const std::function<void()> closed_;
    const Handle<wl_surface> surface_;
    const Handle<zwlr_layer_surface_v1> layer_;
};

} // namespace corvane::wayland
