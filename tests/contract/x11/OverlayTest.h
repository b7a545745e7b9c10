#pragma once

#include "SampleWindow.h"
#include "WindowSystemTest.h"
#include "actors/Pointer.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/x11/overlay/OverlayWindows.h"
#include "platform/x11/screens/Screens.h"
#include "probes/Screenshot.h"

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace corvane::contract {

using desktop::Pixel;
using desktop::Position;
using desktop::Screenshot;

inline bool isNearly(Pixel one, Pixel other, int tolerance = 3) {
    return std::abs(one.red - other.red) <= tolerance &&
           std::abs(one.green - other.green) <= tolerance &&
           std::abs(one.blue - other.blue) <= tolerance;
}

inline bool isGreen(Pixel pixel) {
    return pixel.green > pixel.red + 60 && pixel.green > pixel.blue + 40;
}

inline bool isBlue(Pixel pixel) {
    return pixel.blue > pixel.red + 60 && pixel.blue > pixel.green + 40;
}

/// A desktop of one colour with a back end's overlays on it.
class OverlayTest : public WindowSystemTest {
  protected:
    static constexpr Pixel background{220, 200, 180};
    static constexpr double screenHeight = 600;

    static bool isBackground(Pixel pixel) { return pixel == background; }

    static constexpr Colour faintGreen{ColourName::systemGreen, 0.15};
    /// The background beneath that colour.
    static bool isFaintlyGreen(Pixel pixel) { return isNearly(pixel, {195, 200, 167}, 6); }

    explicit OverlayTest(bool hasCompositor);

    Screenshot screenshot() const { return Screenshot(desktop_.connection()); }

    /// Turns the event loop until the screen satisfies the condition.
    bool turnUntilScreen(const std::function<bool(const Screenshot &screen)> &condition);

    /// Turns the event loop until that pixel satisfies the condition.
    bool turnUntilPixel(Position position, const std::function<bool(Pixel)> &condition);

    /// The windows of the back end that are on the screen, from the lowest to the highest.
    std::vector<xcb_window_t> shownOverlays() const;

    /// All windows of the back end.
    std::size_t windowCount() const;

    /// Covers the desktop so that what is drawn over it is seen on something known.
    SampleWindow backdrop_;
    x11::Screens screens_{events_};
    drawing::SymbolImages symbols_;
    x11::OverlayWindows overlays_{events_, screens_, symbols_};

  private:
    void waitForBlending();
    /// Whether this back end's connection has made the window.
    bool isOurs(xcb_window_t window) const;
    std::vector<xcb_window_t> topLevelWindows() const;
};

/// With and without a compositing manager.
class EveryOverlayTest : public OverlayTest, public testing::WithParamInterface<bool> {
  protected:
    EveryOverlayTest() : OverlayTest(GetParam()) {}
};

inline std::string compositing(const testing::TestParamInfo<bool> &each) {
    return each.param ? "compositor" : "nothing";
}

} // namespace corvane::contract
