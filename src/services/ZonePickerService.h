#pragma once

#include "model/WindowAnchor.h"
#include "services/WindowResolver.h"
#include "support/Geometry.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
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
    /// A callback that does nothing once the pick is answered or the service is gone.
    template <typename Work>
    auto weakly(Work work) {
        return [held = std::weak_ptr(self_), work = std::move(work)](const auto &...arguments) {
            if (const auto self = held.lock(); self && (*self)->continuation_) {
                work(**self, arguments...);
            }
        };
    }

    void openOverlays();
    void beginDrag(Point point);
    void updateDrag(Point point);
    void finish(Point point);
    void cancel();
    void cleanUp();
    ZonePickResult anchoredIfWanted(const Rectangle &zone);
    bool wantsAnchor(const WindowAnchor &anchor);
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
    /// What the overlays' callbacks hold weakly.
    std::shared_ptr<ZonePickerService *> self_ = std::make_shared<ZonePickerService *>(this);
};

} // namespace corvane
