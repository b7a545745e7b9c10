#include "platform/wayland/screens/Screens.h"

namespace corvane::wayland {

std::vector<platform::Screen> Screens::screens() const {
    std::vector<platform::Screen> screens;
    for (const Output *output : connection_.outputs()) {
        screens.push_back({flipped(*output->frame(), *primaryHeight())});
    }
    return screens;
}

std::optional<double> Screens::primaryHeight() const {
    const auto outputs = connection_.outputs();
    return outputs.empty() ? std::nullopt : std::optional(outputs.front()->frame()->height);
}

Rectangle Screens::toGlobal(const Rectangle &rectangle) const {
    const auto height = primaryHeight();
    return height ? flipped(rectangle, *height) : rectangle;
}

Point Screens::fromGlobal(Point point) const {
    const auto height = primaryHeight();
    return height ? flipped(point, *height) : point;
}

} // namespace corvane::wayland
