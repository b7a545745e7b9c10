#pragma once

#include <optional>
#include <string>

namespace corvane::desktop {

/// A rectangle of the settings, in pixels of the root window.
struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Area &) const = default;
};

/// The settings a test writes for the program before it starts.
struct Settings {
    /// The window a zone follows.
    struct Anchor {
        std::string application;
        std::string title;
        Area relative;
    };

    std::string clickMode = "cursor";
    int clickRate = 20;
    std::string timeUnit = "s";
    int maxClicks = 0;
    std::optional<Area> zone;
    std::optional<Anchor> anchor;

    /// The content of the settings file. Names are written as they are.
    std::string text() const;
};

} // namespace corvane::desktop
