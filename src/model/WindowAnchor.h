#pragma once

#include "model/CodableRect.h"

#include <string>

namespace corvane {

namespace platform {
class Applications;
}

/// Ties a zone to another application's window.
struct WindowAnchor {
    std::string bundleID;
    /// The window's title when the zone was anchored.
    std::string windowTitle;
    /// The zone: its offset from the window's top left corner, and its size.
    CodableRect relativeRect;

    bool operator==(const WindowAnchor &) const = default;

    /// The application's name for the user; its bundle identifier where the system knows none. Main
    /// thread.
    std::string appName(platform::Applications &applications) const;
};

} // namespace corvane
