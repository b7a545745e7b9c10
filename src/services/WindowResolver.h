#pragma once

#include "model/WindowAnchor.h"
#include "support/Geometry.h"

#include <expected>
#include <optional>
#include <string>

namespace corvane {

namespace platform {
class Accessibility;
class AccessibilityWindow;
class Applications;
class WindowList;
} // namespace platform

/// An anchored window found again; global display space.
struct ResolvedAnchor {
    Rectangle windowFrame;
    Rectangle zone;

    bool operator==(const ResolvedAnchor &) const = default;
};

/// Ties a zone to another application's window and finds it again. Main thread; keeps no state.
class WindowResolver {
  public:
    WindowResolver(platform::WindowList &windowList, platform::Applications &applications,
                   platform::Accessibility &accessibility)
        : windowList_(windowList),
          applications_(applications),
          accessibility_(accessibility) {}

    /// An anchor to the front-most ordinary window of another application under the zone's centre.
    std::optional<WindowAnchor> detectWindow(const Rectangle &zone) const;

    /// Where the anchored window and its zone are now.
    std::optional<ResolvedAnchor> resolve(const WindowAnchor &anchor) const;

    /// An anchor resolved, or else what the log says of why not.
    using Resolution = std::expected<ResolvedAnchor, std::string>;

    /// The same for callers in a hurry, who have `logResolution` say afterwards what was found.
    Resolution find(const WindowAnchor &anchor) const;
    static void logResolution(const Resolution &resolution);

    static std::optional<Rectangle> windowFrame(platform::AccessibilityWindow &window);

  private:
    platform::WindowList &windowList_;
    platform::Applications &applications_;
    platform::Accessibility &accessibility_;
};

} // namespace corvane
