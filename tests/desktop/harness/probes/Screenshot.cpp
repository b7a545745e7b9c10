#include "Screenshot.h"

#include "platform/x11/connection/Xcb.h"

#include <QImage>
#include <QString>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace corvane::desktop {

Screenshot::Screenshot(const DisplayConnection &connection)
    : width_(connection.screen().width_in_pixels),
      height_(connection.screen().height_in_pixels),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {
    constexpr std::uint32_t allPlanes = ~0U;
    const auto cookie = xcb_get_image(connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                      connection.root(), 0, 0, connection.screen().width_in_pixels,
                                      connection.screen().height_in_pixels, allPlanes);
    const x11::XcbReply<xcb_get_image_reply_t> image(
        xcb_get_image_reply(connection.get(), cookie, nullptr));
    const std::size_t bytes = pixels_.size() * sizeof(std::uint32_t);
    if (!image || static_cast<std::size_t>(xcb_get_image_data_length(image.get())) != bytes) {
        throw std::runtime_error("The X server gives no picture of the desktop");
    }
    std::memcpy(pixels_.data(), xcb_get_image_data(image.get()), bytes);
    std::ranges::for_each(pixels_, [](std::uint32_t &pixel) { pixel &= 0xFFFFFFU; });
}

Pixel Screenshot::at(Position position) const {
    if (position.x < 0 || position.y < 0 || position.x >= width_ || position.y >= height_) {
        return {};
    }
    const std::uint32_t value =
        pixels_[static_cast<std::size_t>(position.y) * static_cast<std::size_t>(width_) +
                static_cast<std::size_t>(position.x)];
    const auto part = [value](int shift) { return static_cast<int>((value >> shift) & 0xFFU); };
    return {part(16), part(8), part(0)};
}

int Screenshot::count(Position center, int radius,
                      const std::function<bool(Pixel)> &condition) const {
    int found = 0;
    for (int y = center.y - radius; y <= center.y + radius; ++y) {
        for (int x = center.x - radius; x <= center.x + radius; ++x) {
            found += condition(at({x, y})) ? 1 : 0;
        }
    }
    return found;
}

bool Screenshot::savePng(const std::filesystem::path &path) const {
    const QImage image(reinterpret_cast<const uchar *>(pixels_.data()), width_, height_,
                       QImage::Format_RGB32);
    return image.save(QString::fromStdString(path.string()), "PNG");
}

} // namespace corvane::desktop
