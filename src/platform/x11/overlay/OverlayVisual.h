#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <memory>

namespace corvane::x11 {

/// How overlays hold their pixels on the server: eight bits a channel, with an alpha channel where
/// the server has such a visual.
class OverlayVisual {
  public:
    /// Null where the server has no visual with eight bits a channel. The connection outlives the
    /// visual.
    static std::unique_ptr<OverlayVisual> find(const XcbConnection &connection);

    ~OverlayVisual();

    OverlayVisual(const OverlayVisual &) = delete;
    OverlayVisual &operator=(const OverlayVisual &) = delete;

    const XcbConnection &connection() const { return connection_; }
    xcb_visualid_t id() const { return id_; }
    std::uint8_t depth() const { return depth_; }
    bool hasAlpha() const { return depth_ == 32; }
    xcb_colormap_t colourMap() const { return colourMap_; }
    /// For drawables of this visual's depth.
    xcb_gcontext_t graphicsContext() const { return graphicsContext_; }

  private:
    OverlayVisual(const XcbConnection &connection, xcb_visualid_t id, std::uint8_t depth);

    const XcbConnection &connection_;
    const xcb_visualid_t id_;
    const std::uint8_t depth_;
    const xcb_colormap_t colourMap_;
    const xcb_gcontext_t graphicsContext_;
};

} // namespace corvane::x11
