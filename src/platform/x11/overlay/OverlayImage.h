#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <QImage>
#include <QPoint>
#include <QRgb>
#include <QSize>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// The pixel format of overlays on the server: eight bits a channel, with an alpha channel where
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

/// The contents of an overlay's window as a pixmap on the server, so that showing it again sends no
/// pixels.
class OverlayImage {
  public:
    /// Transparent until something is put into it. The visual outlives the image.
    OverlayImage(const OverlayVisual &visual, QSize size);
    ~OverlayImage();

    OverlayImage(const OverlayImage &) = delete;
    OverlayImage &operator=(const OverlayImage &) = delete;

    /// Replaces the pixels beneath `image`, premultiplied 32-bit, with its top left corner at `at`.
    void put(const QImage &image, QPoint at);

    /// Has one opaque colour everywhere instead of pixels of its own.
    void fill(QRgb colour) { colour_ = colour; }

    /// Cuts the window to where `image`, of the same size, is not transparent.
    void cutOut(const QImage &image);

    /// None while nothing has been put into the image.
    xcb_pixmap_t pixmap() const { return pixmap_; }

    std::optional<QRgb> colour() const { return colour_; }

    /// The shape that the window is cut to, in bands from the top; absent for the whole window.
    const std::optional<std::vector<xcb_rectangle_t>> &shape() const { return shape_; }

  private:
    const OverlayVisual &visual_;
    const QSize size_;
    xcb_pixmap_t pixmap_ = XCB_PIXMAP_NONE;
    std::optional<QRgb> colour_;
    std::optional<std::vector<xcb_rectangle_t>> shape_;
};

} // namespace corvane::x11
