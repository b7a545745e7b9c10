#include "Marks.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

/// Pixels a side is looked at, and as many gaps less one.
constexpr int looks = 8;

bool isOnlyGreenAt(const Screenshot &seen, Position on, Position beside) {
    return isGreen(seen.at(on)) && !isGreen(seen.at(beside));
}

} // namespace

bool isGreen(Pixel pixel) { return pixel.green > pixel.red + 80 && pixel.green > pixel.blue + 50; }

bool isFaintlyGreen(Pixel pixel) {
    return pixel.green > pixel.red + 15 && pixel.green > pixel.blue + 15 && pixel.red > 150;
}

bool isBlue(Pixel pixel) { return pixel.blue > pixel.red + 60; }

bool isWhite(Pixel pixel) { return pixel == Pixel{255, 255, 255}; }

bool isBlack(Pixel pixel) { return pixel == Pixel{0, 0, 0}; }

bool isOutlined(const Screenshot &seen, const Area &zone) {
    const int right = zone.x + zone.width - 1;
    const int bottom = zone.y + zone.height - 1;
    for (int look = 1; look < looks; ++look) {
        const int x = zone.x + zone.width * look / looks;
        const int y = zone.y + zone.height * look / looks;
        if (!isOnlyGreenAt(seen, {zone.x, y}, {zone.x - 1, y}) ||
            !isOnlyGreenAt(seen, {right, y}, {right + 1, y}) ||
            !isOnlyGreenAt(seen, {x, bottom}, {x, bottom + 1}) || !isGreen(seen.at({x, zone.y}))) {
            return false;
        }
    }
    // The badge stands above the left of the upper side.
    return !isGreen(seen.at({right, zone.y - 1}));
}

bool hasBadge(const Screenshot &seen, const Area &zone) {
    return isGreen(seen.at({zone.x + 3, zone.y - 11})) &&
           isGreen(seen.at({zone.x + 11, zone.y - 20})) &&
           !isGreen(seen.at({zone.x + 24, zone.y - 11}));
}

std::optional<Area> ringAround(const Screenshot &seen, Position center) {
    constexpr int reach = 25;
    Position least{center.x + reach, center.y + reach};
    Position greatest{center.x - reach, center.y - reach};
    for (int y = center.y - reach; y < center.y + reach; ++y) {
        for (int x = center.x - reach; x < center.x + reach; ++x) {
            if (isBlue(seen.at({x, y}))) {
                least = {std::min(least.x, x), std::min(least.y, y)};
                greatest = {std::max(greatest.x, x), std::max(greatest.y, y)};
            }
        }
    }
    if (greatest.x < least.x) {
        return std::nullopt;
    }
    return Area{least.x, least.y, greatest.x - least.x + 1, greatest.y - least.y + 1};
}

} // namespace corvane::desktop
