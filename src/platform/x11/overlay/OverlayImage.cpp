#include "platform/x11/overlay/OverlayImage.h"

#include <algorithm>

namespace corvane::x11 {

namespace {

/// The runs of pixels in a row that are not transparent.
std::vector<xcb_rectangle_t> runsOf(const QImage &image, int y) {
    std::vector<xcb_rectangle_t> runs;
    const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
        if (qAlpha(row[x]) == 0) {
            continue;
        }
        const int start = x;
        while (x < image.width() && qAlpha(row[x]) != 0) {
            ++x;
        }
        runs.push_back({static_cast<std::int16_t>(start), static_cast<std::int16_t>(y),
                        static_cast<std::uint16_t>(x - start), 1});
    }
    return runs;
}

bool coverSameColumns(const std::vector<xcb_rectangle_t> &one,
                      const std::vector<xcb_rectangle_t> &other) {
    return std::ranges::equal(one, other, [](const auto &left, const auto &right) {
        return left.x == right.x && left.width == right.width;
    });
}

} // namespace

OverlayImage::OverlayImage(const OverlayVisual &visual, QSize size)
    : visual_(visual),
      size_(size) {}

OverlayImage::~OverlayImage() {
    if (pixmap_ != XCB_PIXMAP_NONE) {
        xcb_free_pixmap(visual_.connection().get(), pixmap_);
    }
}

void OverlayImage::put(const QImage &image, QPoint at) {
    xcb_connection_t *const connection = visual_.connection().get();
    if (pixmap_ == XCB_PIXMAP_NONE) {
        pixmap_ = xcb_generate_id(connection);
        xcb_create_pixmap(connection, visual_.depth(), pixmap_, visual_.connection().root(),
                          static_cast<std::uint16_t>(size_.width()),
                          static_cast<std::uint16_t>(size_.height()));
    }
    constexpr std::uint32_t headerBytes = 64;
    const std::uint32_t limit = xcb_get_maximum_request_length(connection) * 4 - headerBytes;
    const auto bytesPerLine = static_cast<std::uint32_t>(image.bytesPerLine());
    const int rows = std::max(1, static_cast<int>(limit / bytesPerLine));
    for (int y = 0; y < image.height(); y += rows) {
        const int height = std::min(rows, image.height() - y);
        xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap_, visual_.graphicsContext(),
                      static_cast<std::uint16_t>(image.width()), static_cast<std::uint16_t>(height),
                      static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y() + y), 0,
                      visual_.depth(), bytesPerLine * static_cast<std::uint32_t>(height),
                      image.constScanLine(y));
    }
}

void OverlayImage::cutOut(const QImage &image) {
    areas_.emplace();
    std::vector<xcb_rectangle_t> band;
    for (int y = 0; y < image.height(); ++y) {
        std::vector<xcb_rectangle_t> runs = runsOf(image, y);
        if (!band.empty() && coverSameColumns(band, runs)) {
            for (xcb_rectangle_t &run : band) {
                ++run.height;
            }
        } else {
            areas_->insert(areas_->end(), band.begin(), band.end());
            band = std::move(runs);
        }
    }
    areas_->insert(areas_->end(), band.begin(), band.end());
}

} // namespace corvane::x11
