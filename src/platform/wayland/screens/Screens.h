#pragma once

#include "platform/Screens.h"
#include "platform/wayland/connection/Connection.h"

#include <optional>
#include <vector>

namespace corvane::wayland {

/// The compositor's outputs in its logical pixels, as clicks and zones count. Wayland has no
/// primary screen: the one at the origin of the layout takes its place.
class Screens : public platform::Screens {
  public:
    /// The connection outlives the screens.
    explicit Screens(const Connection &connection) : connection_(connection) {}

    std::vector<platform::Screen> screens() const override;

    /// Converts from screen space to global display space or back; unchanged without screens.
    Rectangle toGlobal(const Rectangle &rectangle) const;
    Rectangle fromGlobal(const Rectangle &rectangle) const { return toGlobal(rectangle); }
    Point fromGlobal(Point point) const;

  private:
    std::optional<double> primaryHeight() const;

    const Connection &connection_;
};

} // namespace corvane::wayland
