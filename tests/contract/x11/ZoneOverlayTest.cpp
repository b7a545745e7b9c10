#include "OverlayTest.h"
#include "WaitUntil.h"
#include "actors/ClickClient.h"
#include "overlay/RippleWindow.h"
#include "overlay/ZoneOverlayWindow.h"
#include "platform/x11/connection/Xcb.h"

namespace corvane::contract {

namespace {

constexpr Rectangle zone{200, 150, 300, 200};

/// Inside the zone, away from its outline.
constexpr Position inside{350, 250};
/// Inside the badge, beside its icon.
constexpr Position badge{203, 145};

bool isWhite(Pixel pixel) { return isNearly(pixel, {255, 255, 255}, 10); }

/// Lays the overlay of a zone over the desktop.
class ZoneOverlayTest : public EveryOverlayTest {
  protected:
    void show() {
        overlay_.orderFront();
        ASSERT_TRUE(turnUntilPixel({200, 250}, isGreen));
    }

    ZoneOverlayWindow overlay_{overlays_, zone, screenHeight};
};

TEST_P(ZoneOverlayTest, TheOutlineLiesInsideTheZone) {
    show();
    const Screenshot screen = screenshot();
    for (const Position corner :
         {Position{200, 150}, Position{499, 150}, Position{200, 349}, Position{499, 349}}) {
        EXPECT_TRUE(isGreen(screen.at(corner))) << corner.x << ", " << corner.y;
    }
    for (const Position outside :
         {Position{199, 250}, Position{500, 250}, Position{350, 149}, Position{350, 350}}) {
        EXPECT_EQ(screen.at(outside), background) << outside.x << ", " << outside.y;
    }
}

TEST_P(ZoneOverlayTest, TheBadgeStandsAboveTheTopLeftCorner) {
    show();
    const Screenshot screen = screenshot();
    EXPECT_TRUE(isGreen(screen.at(badge)));
    EXPECT_TRUE(isGreen(screen.at({211, 129})));
    EXPECT_GT(screen.count({211, 139}, 6, isWhite), 5);
    EXPECT_EQ(screen.at({211, 127}), background);
    EXPECT_EQ(screen.at({223, 139}), background);
    // Its corners are round.
    EXPECT_EQ(screen.at({200, 128}), background);
    EXPECT_EQ(screen.at({221, 128}), background);
}

TEST_P(ZoneOverlayTest, TheZoneStaysVisible) {
    show();
    const Pixel pixel = screenshot().at(inside);
    if (GetParam()) {
        EXPECT_TRUE(isFaintlyGreen(pixel));
    } else {
        EXPECT_EQ(pixel, background);
    }
}

TEST_P(ZoneOverlayTest, AZoneNarrowerThanTheBadgeCutsItOff) {
    ZoneOverlayWindow narrow(overlays_, {600, 300, 10, 40}, screenHeight);
    narrow.orderFront();
    ASSERT_TRUE(turnUntilPixel({603, 295}, isGreen));
    EXPECT_EQ(screenshot().at({612, 290}), background);
}

TEST_P(ZoneOverlayTest, AZoneLargerThanTheDesktopIsOutlinedWhereItIsSeen) {
    overlay_.moveTo({200, 150, 1e6, 1e6}, screenHeight);
    overlay_.orderFront();
    EXPECT_TRUE(turnUntilScreen([](const Screenshot &screen) {
        return isGreen(screen.at({200, 590})) && isGreen(screen.at({790, 150})) &&
               isGreen(screen.at(badge)) && !isGreen(screen.at({790, 590})) &&
               screen.at({199, 590}) == background;
    }));
    overlay_.moveTo({-1e6, -1e6, 1e6 + 500, 1e6 + 350}, screenHeight);
    EXPECT_TRUE(turnUntilScreen([](const Screenshot &screen) {
        return isGreen(screen.at({10, 349})) && isGreen(screen.at({499, 10})) &&
               !isGreen(screen.at({10, 10})) && isBackground(screen.at(badge)) != GetParam() &&
               screen.at({500, 10}) == background && screen.at({10, 350}) == background;
    }));
}

TEST_P(ZoneOverlayTest, AZoneBeyondAllCountingIsNotSeen) {
    show();
    for (const Rectangle &far :
         {Rectangle{65536 + 200, 150, 300, 200}, Rectangle{200, -65536 + 150, 300, 200},
          Rectangle{1e300, 1e300, 10, 10}, Rectangle{-1e300, 150, 300, 1e300}}) {
        overlay_.moveTo(far, screenHeight);
        EXPECT_TRUE(turnUntilScreen([](const Screenshot &screen) {
            return screen.count({400, 300}, 290, [](Pixel pixel) { return pixel != background; }) ==
                   0;
        }));
    }
    overlay_.moveTo(zone, screenHeight);
    EXPECT_TRUE(turnUntilPixel({200, 250}, isGreen));
}

TEST_P(ZoneOverlayTest, EveryClickReachesTheWindowBeneath) {
    desktop::ClickClient client(desktop_);
    client.open({.x = 0, .y = 0, .width = 800, .height = 600, .isOverride = true});
    overlay_.orderFront();
    ASSERT_TRUE(turnUntilPixel({200, 250}, isGreen));
    const desktop::Pointer pointer(desktop_.connection());
    int clicks = 0;
    for (const Position position : {inside, badge, Position{200, 250}, Position{211, 139}}) {
        pointer.moveTo(position);
        pointer.click();
        EXPECT_TRUE(client.waitForClicks(++clicks)) << position.x << ", " << position.y;
    }
}

TEST_P(ZoneOverlayTest, AMoveLeavesBeforeTheEventLoopTurns) {
    show();
    const auto shown = shownOverlays();
    ASSERT_EQ(shown.size(), 1U);
    overlay_.moveTo({400, 300, 300, 200}, screenHeight);
    xcb_connection_t *const connection = desktop_.connection().get();
    EXPECT_TRUE(desktop::waitUntil([&] {
        const x11::XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
            connection, xcb_get_geometry(connection, shown.front()), nullptr));
        return geometry && geometry->x == 400;
    }));
}

TEST_P(ZoneOverlayTest, ItMovesAtOnceAndLeavesNothingBehind) {
    show();
    overlay_.moveTo({400, 300, 300, 200}, screenHeight);
    EXPECT_TRUE(turnUntilScreen([](const Screenshot &screen) {
        return isGreen(screen.at({400, 400})) && isGreen(screen.at({403, 295})) &&
               screen.at({200, 250}) == background && screen.at(badge) == background;
    }));
}

TEST_P(ZoneOverlayTest, ItTakesANewSize) {
    show();
    overlay_.moveTo({200, 150, 120, 90}, screenHeight);
    EXPECT_TRUE(turnUntilScreen([](const Screenshot &screen) {
        return isGreen(screen.at({319, 200})) && isGreen(screen.at({250, 239})) &&
               isGreen(screen.at(badge)) && screen.at({499, 250}) == background;
    }));
}

TEST_P(ZoneOverlayTest, OrderedOutItIsGone) {
    show();
    overlay_.orderOut();
    EXPECT_TRUE(turnUntilScreen([](const Screenshot &screen) {
        return screen.at({200, 250}) == background && screen.at(inside) == background;
    }));
    EXPECT_TRUE(shownOverlays().empty());
    show();
}

TEST_P(ZoneOverlayTest, ALaterWindowDoesNotCoverIt) {
    show();
    const SampleWindow later(desktop_.connection(), {.x = 0, .y = 0, .width = 800, .height = 600});
    later.setColour(250, 250, 210);
    later.map();
    const auto showsBoth = [](const Screenshot &screen) {
        return screen.at({700, 550}) == Pixel{250, 250, 210} && isGreen(screen.at({200, 250}));
    };
    EXPECT_TRUE(turnUntilScreen(showsBoth));
    backdrop_.raise();
    EXPECT_TRUE(turnUntilScreen([](const Screenshot &screen) {
        return screen.at({700, 550}) == background && isGreen(screen.at({200, 250}));
    }));
    later.raise();
    EXPECT_TRUE(turnUntilScreen(showsBoth));
}

TEST_P(ZoneOverlayTest, ItsProgramIsNotWokenByItsOwnWindows) {
    show();
    // Windows are made once and kept.
    RippleWindow(overlays_, {60, 60}, screenHeight).orderFront();
    settle(events_);
    int changes = 0;
    const auto subscription = events_.subscribe([&changes](const xcb_generic_event_t &event) {
        const int type = x11::XcbEvents::typeOf(event);
        changes += type >= XCB_CREATE_NOTIFY && type <= XCB_CIRCULATE_NOTIFY ? 1 : 0;
    });
    for (int count = 1; count <= 5; ++count) {
        RippleWindow ripple(overlays_, {60, 60}, screenHeight);
        ripple.orderFront();
        overlay_.moveTo({zone.x + count, zone.y, zone.width, zone.height}, screenHeight);
        EXPECT_TRUE(turnUntil([&] { return shownOverlays().size() == 2; }));
        ripple.orderOut();
        EXPECT_TRUE(turnUntil([&] { return shownOverlays().size() == 1; }));
        settle(events_);
    }
    EXPECT_EQ(changes, 0);
    backdrop_.raise();
    EXPECT_TRUE(turnUntil([&changes] { return changes > 0; }));
}

TEST_P(ZoneOverlayTest, ItFollowsTheCompositor) {
    show();
    for (int count = 0; count < 2; ++count) {
        if (!GetParam()) {
            desktop_.startCompositor();
            EXPECT_TRUE(turnUntilPixel(inside, isFaintlyGreen));
        }
        desktop_.stopCompositor();
        EXPECT_TRUE(turnUntilPixel(inside, isBackground));
        EXPECT_TRUE(turnUntilPixel({200, 250}, isGreen));
        if (GetParam()) {
            desktop_.startCompositor();
            EXPECT_TRUE(turnUntilPixel(inside, isFaintlyGreen));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(With, ZoneOverlayTest, testing::Bool(), compositing);

} // namespace

} // namespace corvane::contract
