#include "OverlayTest.h"
#include "overlay/ZoneOverlayWindow.h"

#include <xcb/shape.h>

#include <algorithm>
#include <vector>

namespace corvane::contract {

namespace {

/// Where the compositor forgets that a changed window lets the mouse through.
class ReplacedOverlayTest : public OverlayTest {
  protected:
    ReplacedOverlayTest() : OverlayTest(true) {}

    bool letsMouseThrough(xcb_window_t window) const {
        const auto &connection = events_.connection();
        const auto region = x11::reply<xcb_shape_get_rectangles_reply>(
            connection.get(),
            xcb_shape_get_rectangles(connection.get(), window, XCB_SHAPE_SK_INPUT));
        return region && xcb_shape_get_rectangles_rectangles_length(region.get()) == 0;
    }

    /// Turns the event loop until one overlay is on the screen that is not among those.
    bool turnUntilReplaced(const std::vector<xcb_window_t> &former) {
        return turnUntil([&] {
            const auto shown = shownOverlays();
            return shown.size() == 1 && std::ranges::find(former, shown[0]) == former.end();
        });
    }

    x11::OverlayWindows replaced_{events_, screens_, symbols_, true};
    ZoneOverlayWindow outline_{replaced_, {100, 100, 200, 150}, screenHeight};
};

TEST_F(ReplacedOverlayTest, ANewWindowTakesThePlaceOfOneThatMoves) {
    outline_.orderFront();
    ASSERT_TRUE(turnUntilPixel({200, 175}, isFaintlyGreen));
    std::vector<xcb_window_t> former = shownOverlays();
    ASSERT_EQ(former.size(), 1U);
    for (const double x : {400.0, 450.0}) {
        outline_.moveTo({x, 300, 200, 150}, screenHeight);
        ASSERT_TRUE(turnUntilReplaced(former));
        EXPECT_TRUE(letsMouseThrough(shownOverlays()[0]));
        former.push_back(shownOverlays()[0]);
        EXPECT_TRUE(turnUntilPixel({static_cast<int>(x) + 100, 375}, isFaintlyGreen));
    }
    EXPECT_TRUE(turnUntilPixel({200, 175}, isBackground));
}

TEST_F(ReplacedOverlayTest, ANewWindowTakesThePlaceOfOneThatGrows) {
    outline_.orderFront();
    ASSERT_TRUE(turnUntilPixel({200, 175}, isFaintlyGreen));
    const std::vector<xcb_window_t> former = shownOverlays();
    outline_.moveTo({100, 100, 400, 300}, screenHeight);
    ASSERT_TRUE(turnUntilReplaced(former));
    EXPECT_TRUE(letsMouseThrough(shownOverlays()[0]));
    EXPECT_TRUE(turnUntilPixel({400, 350}, isFaintlyGreen));
}

} // namespace

} // namespace corvane::contract
