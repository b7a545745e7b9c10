#include "Look.h"

#include <algorithm>

namespace corvane::contract {

int lightest(const QImage &image) {
    int lightness = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            lightness = std::max(lightness, image.pixelColor(x, y).lightness());
        }
    }
    return lightness;
}

int darkest(QImage image) {
    image.invertPixels();
    return 255 - lightest(image);
}

} // namespace corvane::contract
