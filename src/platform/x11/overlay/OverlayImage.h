#pragma once

#include "platform/x11/overlay/OverlayVisual.h"

#include <QImage>
#include <QPoint>
#include <QRgb>
#include <QSize>

#include <optional>
#include <vector>

namespace corvane::x11 {

/// What an overlay's window shows, kept on the server, so that showing it again costs next to
/// nothing.
class OverlayImage {
  public:
    /// Shows nothing until something is put into it. The visual outlives the picture.
    OverlayImage(const OverlayVisual &visual, QSize size);
    ~OverlayImage();

    OverlayImage(const OverlayImage &) = delete;
    OverlayImage &operator=(const OverlayImage &) = delete;

    /// Replaces the pixels beneath `image`, premultiplied 32-bit, with its top left corner at `at`.
    void put(const QImage &image, QPoint at);

    /// Has one opaque colour everywhere instead of pixels of its own.
    void fill(QRgb colour) { colour_ = colour; }

    /// Limits the window to where `image`, which covers the whole picture, is not transparent.
    void cutOut(const QImage &image);

    /// None while nothing has been put into the picture.
    xcb_pixmap_t pixmap() const { return pixmap_; }

    std::optional<QRgb> colour() const { return colour_; }

    /// The only parts of the window that exist, in bands from the top; absent for the whole window.
    const std::optional<std::vector<xcb_rectangle_t>> &areas() const { return areas_; }

  private:
    const OverlayVisual &visual_;
    const QSize size_;
    xcb_pixmap_t pixmap_ = XCB_PIXMAP_NONE;
    std::optional<QRgb> colour_;
    std::optional<std::vector<xcb_rectangle_t>> areas_;
};

} // namespace corvane::x11
