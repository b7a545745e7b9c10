#include "platform/x11/overlay/OverlayImage.h"

#include <algorithm>
#include <utility>

namespace corvane::x11 {

namespace {

bool hasPlainChannels(const xcb_visualtype_t &visual) {
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xFF0000 &&
           visual.green_mask == 0xFF00 && visual.blue_mask == 0xFF;
}

std::optional<xcb_visualid_t> visualOfDepth(const xcb_screen_t &screen, std::uint8_t depth) {
    auto depths = xcb_screen_allowed_depths_iterator(&screen);
    for (; depths.rem > 0; xcb_depth_next(&depths)) {
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; depths.data->depth == depth && visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (hasPlainChannels(*visuals.data)) {
                return visuals.data->visual_id;
            }
        }
    }
    return std::nullopt;
}

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

std::unique_ptr<OverlayVisual> OverlayVisual::find(const XcbConnection &connection) {
    for (const std::uint8_t depth : {std::uint8_t{32}, std::uint8_t{24}}) {
        if (const auto id = visualOfDepth(connection.screen(), depth)) {
            return std::unique_ptr<OverlayVisual>(
                new OverlayVisual(connection, *id, depth)); // NOLINT
        }
    }
    return nullptr;
}

OverlayVisual::OverlayVisual(const XcbConnection &connection, xcb_visualid_t id, std::uint8_t depth)
    : connection_(connection),
      id_(id),
      depth_(depth),
      colourMap_(xcb_generate_id(connection.get())),
      graphicsContext_(xcb_generate_id(connection.get())) {
    xcb_create_colormap(connection.get(), XCB_COLORMAP_ALLOC_NONE, colourMap_, connection.root(),
                        id);
    // A graphics context fits every drawable of the depth it was made with.
    const xcb_pixmap_t sample = xcb_generate_id(connection.get());
    xcb_create_pixmap(connection.get(), depth, sample, connection.root(), 1, 1);
    xcb_create_gc(connection.get(), graphicsContext_, sample, 0, nullptr);
    xcb_free_pixmap(connection.get(), sample);
}

OverlayVisual::~OverlayVisual() {
    xcb_free_gc(connection_.get(), graphicsContext_);
    xcb_free_colormap(connection_.get(), colourMap_);
}

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
    shape_.emplace();
    std::vector<xcb_rectangle_t> band;
    for (int y = 0; y < image.height(); ++y) {
        std::vector<xcb_rectangle_t> runs = runsOf(image, y);
        if (!band.empty() && coverSameColumns(band, runs)) {
            for (xcb_rectangle_t &run : band) {
                ++run.height;
            }
        } else {
            shape_->insert(shape_->end(), band.begin(), band.end());
            band = std::move(runs);
        }
    }
    shape_->insert(shape_->end(), band.begin(), band.end());
}

} // namespace corvane::x11
