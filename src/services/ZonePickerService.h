#pragma once

#include "model/WindowAnchor.h"
#include "services/WindowResolver.h"
#include "support/Geometry.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace corvane {

namespace platform {
class Alerts;
class Application;
class Applications;
class OverlayWindows;
class Screens;
} // namespace platform

class OverlayWindow;

/// A zone the user has drawn.
struct ZonePickResult {
    /// Global display space.
    Rectangle absoluteRect;
    /// Present when the user agreed to anchor the zone.
    std::optional<WindowAnchor> windowAnchor{};

    bool operator==(const ZonePickResult &) const = default;
};

/// Lets the user draw the zone with the mouse. Main thread.
class ZonePickerService {
  public:
    /// Nothing when the pick was cancelled.
    using Answer = std::function<void(std::optional<ZonePickResult>)>;

    ZonePickerService(platform::Screens &screens, platform::OverlayWindows &overlayWindows,
                      platform::Alerts &alerts, platform::Applications &applications,
                      platform::Application &application, WindowResolver resolver);
    ~ZonePickerService();

    /// Covers the screens and asks for a zone; `answer` is called exactly once, unless another pick
    /// takes its place first.
    void pick(Answer answer);

  private:
    void openOverlays();
    void beginDrag(Point point);
    void updateDrag(Point point);
    void finish(Point point);
    void cancel();
    void cleanUp();
    void answer(const std::optional<ZonePickResult> &result);

    platform::Screens &screens_;
    platform::OverlayWindows &overlays_;
    platform::Alerts &alerts_;
    platform::Applications &applications_;
    platform::Application &application_;
    WindowResolver resolver_;
    std::vector<std::unique_ptr<OverlayWindow>> overlayWindows_;
    Answer continuation_;
    std::optional<Point> dragOrigin_;
};

} // namespace corvane
