#pragma once

#include "platform/wayland/click/ClickDevice.h"
#include "platform/wayland/click/CursorReader.h"
#include "platform/wayland/connection/Connection.h"
#include "platform/wayland/connection/Seat.h"
#include "platform/wayland/connection/SharedImage.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvane::wayland {

/// Finds the pointer, whose position no wlroots compositor gives away: transparent surfaces are
/// shown for a moment, and the one beneath the pointer receives the position. The window that lies
/// there sees the pointer leave and come back.
class CursorProbe : public CursorReader {
  public:
    /// Null when the connection is lost. The connection, which offers the layer shell, and the
    /// device outlive the probe.
    static std::unique_ptr<CursorProbe> make(Connection &connection, ClickDevice &device);

    CursorProbe(const CursorProbe &) = delete;
    CursorProbe &operator=(const CursorProbe &) = delete;
    ~CursorProbe() override = default;

    /// Nothing while a button is held or another program has the pointer to itself.
    std::optional<Point> position() override;

  private:
    class Surface;

    CursorProbe(Connection &connection, ClickDevice &device);

    std::optional<Point> findNear(Point place);
    std::optional<Point> findAnywhere();
    std::optional<Point> showAndRead(std::vector<std::unique_ptr<Surface>> surfaces);

    Connection &connection_;
    ClickDevice &device_;
    /// New shared memory is zero, which is transparent.
    const SharedImage pixel_;
    /// The surface that the pointer has entered, and where in it.
    wl_surface *entered_ = nullptr;
    Point point_{};
    Seat seat_;
    /// Most of the time the pointer is where it was.
    std::optional<Point> last_;
};

} // namespace corvane::wayland
