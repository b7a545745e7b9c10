#pragma once

#include "DisplayConnection.h"
#include "Settings.h"
#include "actors/Pointer.h"

#include <string>
#include <vector>

namespace corvane::desktop {

/// A window on screen.
struct SeenWindow {
    xcb_window_t id = XCB_WINDOW_NONE;
    /// The class part of WM_CLASS.
    std::string className;
    std::string title;
    /// On the root window, without its border.
    Area area;
    /// Whether the window manager is kept out.
    bool isOverride = false;
    /// Whether it is drawn into at all.
    bool isInputOnly = false;

    Position middle() const { return {area.x + area.width / 2, area.y + area.height / 2}; }
};

/// All windows on screen, whatever they are in, from the lowest to the highest.
std::vector<SeenWindow> windowsOnScreen(const DisplayConnection &connection);

/// Those of the program under test.
std::vector<SeenWindow> corvaneWindows(const DisplayConnection &connection);

/// How many windows of the program there are directly on the root window, also off the screen.
int corvaneWindowCount(const DisplayConnection &connection);

} // namespace corvane::desktop
