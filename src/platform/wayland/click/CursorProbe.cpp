#include "platform/wayland/click/CursorProbe.h"

#include "platform/wayland/connection/LayerSurface.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace corvane::wayland {

/// A transparent rectangle of an output that takes the pointer.
class CursorProbe::Surface {
  public:
    Surface(const Connection &connection, const Output &output, const Rectangle &area)
        : area_(area),
          surface_(
              connection, output, {.takesPointer = true}, [this] { isReady_ = true; }, [] {}),
          viewport_(wp_viewporter_get_viewport(connection.viewporter(), surface_.get())) {
        surface_.place(area);
        wp_viewport_set_destination(viewport_.get(), static_cast<int>(area.width),
                                    static_cast<int>(area.height));
        wl_surface_commit(surface_.get());
    }

    void show(wl_buffer *pixel) {
        if (isReady_) {
            wl_surface_attach(surface_.get(), pixel, 0, 0);
            wl_surface_commit(surface_.get());
        }
    }

    wl_surface *get() const { return surface_.get(); }
    const Rectangle &area() const { return area_; }

  private:
    const Rectangle area_;
    bool isReady_ = false;
    LayerSurface surface_;
    const Handle<wp_viewport> viewport_;
};

std::unique_ptr<CursorProbe> CursorProbe::make(Connection &connection, ClickDevice &device) {
    std::unique_ptr<CursorProbe> probe(new CursorProbe(connection, device)); // NOLINT
    // The first round trip brings the seat's devices.
    return probe->pixel_.buffer() != nullptr && connection.synchronise() ? std::move(probe)
                                                                         : nullptr;
}

CursorProbe::CursorProbe(Connection &connection, ClickDevice &device)
    : connection_(connection),
      device_(device),
      pixel_(connection.sharedMemory(), {1, 1}),
      seat_(connection,
            {.pointerEntered = [this](wl_surface *surface, Point point, std::uint32_t /*serial*/) {
                entered_ = surface;
                point_ = point;
            }}) {}

std::optional<Point> CursorProbe::position() {
    auto found = last_ ? findNear(*last_) : std::nullopt;
    if (!found) {
        found = findAnywhere();
    }
    // The surfaces are gone; the window beneath is to know that the pointer is back.
    device_.refreshFocus();
    connection_.flush();
    last_ = found;
    return found;
}

/// A surface as large as a screen would have the compositor draw all of it anew.
std::optional<Point> CursorProbe::findNear(Point place) {
    constexpr double side = 64;
    const Rectangle area{std::floor(place.x - side / 2), std::floor(place.y - side / 2), side,
                         side};
    for (const Output *output : connection_.outputs()) {
        if (output->frame()->contains(place)) {
            std::vector<std::unique_ptr<Surface>> surfaces;
            surfaces.push_back(std::make_unique<Surface>(connection_, *output, area));
            return showAndRead(std::move(surfaces));
        }
    }
    return std::nullopt;
}

std::optional<Point> CursorProbe::findAnywhere() {
    std::vector<std::unique_ptr<Surface>> surfaces;
    for (const Output *output : connection_.outputs()) {
        surfaces.push_back(std::make_unique<Surface>(connection_, *output, *output->frame()));
    }
    return showAndRead(std::move(surfaces));
}

std::optional<Point> CursorProbe::showAndRead(std::vector<std::unique_ptr<Surface>> surfaces) {
    entered_ = nullptr;
    if (!connection_.synchronise()) {
        return std::nullopt;
    }
    for (const auto &surface : surfaces) {
        surface->show(pixel_.buffer());
    }
    device_.refreshFocus();
    if (!connection_.synchronise()) {
        return std::nullopt;
    }
    const auto hit = std::ranges::find(surfaces, entered_, &Surface::get);
    return hit != surfaces.end()
               ? std::optional(Point{(*hit)->area().x + point_.x, (*hit)->area().y + point_.y})
               : std::nullopt;
}

} // namespace corvane::wayland
