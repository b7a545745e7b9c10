#pragma once

#include "platform/Screens.h"
#include "platform/x11/connection/XcbEvents.h"

#include <optional>
#include <vector>

namespace corvane::x11 {

/// The monitors RandR reports, in native pixels; the whole X screen where there is no RandR.
class Screens : public platform::Screens {
  public:
    /// The events outlive the screens.
    explicit Screens(XcbEvents &events);

    /// Monitors that show the same area are one screen.
    std::vector<platform::Screen> screens() const override { return screens_; }

    /// The whole X screen in the root window's pixels.
    const Rectangle &desktop() const { return desktop_; }

    /// Converts from screen space to the root window's pixels; unchanged without screens.
    Rectangle toRoot(const Rectangle &rectangle) const;
    /// Converts from the root window's pixels to screen space; unchanged without screens.
    Point toScreenSpace(Point point) const;
    /// The other way round than `toRoot`.
    Rectangle fromRoot(const Rectangle &rectangle) const { return toRoot(rectangle); }

  private:
    void follow(XcbEvents &events, std::uint8_t firstEvent);
    bool isRootChange(const xcb_generic_event_t &event) const;
    void read();
    Rectangle readDesktop() const;
    std::vector<Rectangle> readMonitors() const;
    std::optional<double> primaryHeight() const;

    const XcbConnection &connection_;
    bool hasMonitors_ = false;
    Rectangle desktop_;
    std::vector<platform::Screen> screens_;
    EventMasks::Selection rootEvents_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
