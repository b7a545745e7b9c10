#include "WaylandBackEnd.h"

#include "platform/Screens.h"
#include "servers/SwayDesktop.h"

namespace corvane::contract {

std::unique_ptr<BackEnd> WaylandBackEnd::onSway() {
    return std::make_unique<WaylandBackEnd>(std::make_unique<desktop::SwayDesktop>());
}

std::optional<std::string> WaylandBackEnd::variable(const std::string &name) const {
    const auto variable = desktop_->environment().find(name);
    return variable != desktop_->environment().end() ? std::optional(variable->second)
                                                     : std::nullopt;
}

void WaylandBackEnd::click(Point point) {
    // The compositor replies to a new overlay once before it gets its image.
    events_.connection().synchronise();
    events_.connection().synchronise();
    const double height = platform().screens().screens().front().frame.height;
    const Point position = flipped(point, height);
    client_.moveTo({static_cast<int>(position.x), static_cast<int>(position.y)});
    client_.press();
    client_.release();
}

} // namespace corvane::contract
