#include "OverlayTest.h"
#include "actors/Keyboard.h"
#include "overlay/OverlayWindow.h"

#include <xcb/xcb.h>

#include <vector>

namespace corvane::contract {

namespace {

using desktop::Keyboard;
using desktop::Pointer;

constexpr xcb_keysym_t escapeSymbol = 0xFF1B;
constexpr xcb_keysym_t spaceSymbol = 0x20;

/// The background beneath the picker.
constexpr Pixel dimmed{154, 140, 126};

bool isDimmed(Pixel pixel) { return isNearly(pixel, dimmed); }

class PickerOverlayTest : public EveryOverlayTest {
  protected:
    OverlayCallbacks callbacks() {
        return {.onMouseDown = [this](Point point) { downs_.push_back(point); },
                .onCancel = [this] { ++cancels_; },
                .onDrag = [this](Point point) { drags_.push_back(point); },
                .onMouseUp = [this](Point point) { ups_.push_back(point); }};
    }

    void show() {
        picker_.makeKeyAndOrderFront();
        ASSERT_TRUE(turnUntilPixel({400, 300}, isDimmed));
    }

    xcb_window_t focus() const {
        events_.connection().synchronise();
        xcb_connection_t *const connection = desktop_.connection().get();
        const x11::XcbReply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
        return reply->focus;
    }

    void tap(xcb_keysym_t symbol) const { keyboard_.tap(keyboard_.keyOf(symbol)); }

    Pointer pointer_{desktop_.connection()};
    Keyboard keyboard_{desktop_.connection()};
    std::vector<Point> downs_;
    std::vector<Point> drags_;
    std::vector<Point> ups_;
    int cancels_ = 0;
    OverlayWindow picker_{overlays_, {0, 0, 800, screenHeight}, callbacks()};
};

TEST_P(PickerOverlayTest, TheScreenIsDimmed) {
    show();
    const Screenshot screen = screenshot();
    for (const Position corner :
         {Position{0, 0}, Position{799, 0}, Position{0, 599}, Position{799, 599}}) {
        EXPECT_TRUE(isDimmed(screen.at(corner)));
    }
    picker_.orderOut();
    EXPECT_TRUE(turnUntilPixel({400, 300}, isBackground));
}

TEST_P(PickerOverlayTest, TheSelectionIsDashedAndTinted) {
    show();
    picker_.showSelection({200, 300, 300, 120});
    ASSERT_TRUE(turnUntilPixel({350, 240}, [](Pixel pixel) { return !isDimmed(pixel); }));
    const Screenshot screen = screenshot();
    EXPECT_TRUE(isDimmed(screen.at({190, 240})));
    EXPECT_TRUE(isDimmed(screen.at({350, 302})));
    // Along the lower edge from the left: six pixels drawn, four left out.
    EXPECT_TRUE(isBlue(screen.at({203, 300})));
    EXPECT_FALSE(isBlue(screen.at({208, 300})));
    EXPECT_TRUE(isBlue(screen.at({213, 300})));
    EXPECT_FALSE(isBlue(screen.at({218, 300})));
}

TEST_P(PickerOverlayTest, ADragLeavesNoTrace) {
    show();
    const Screenshot before = screenshot();
    for (const double size : {20.0, 250.0, 90.0, 400.0, 10.0, 180.0}) {
        picker_.showSelection({200, 300 - size / 2, size, size / 2});
        ASSERT_TRUE(
            turnUntilScreen([&before](const Screenshot &screen) { return screen != before; }));
    }
    const auto sees = [this](const Screenshot &wanted) {
        return turnUntilScreen([&wanted](const Screenshot &screen) { return screen == wanted; });
    };
    OverlayWindow fresh(overlays_, {0, 0, 800, screenHeight}, callbacks());
    picker_.clearSelection();
    EXPECT_TRUE(sees(before));
    picker_.showSelection({100, 100, 250, 150});
    ASSERT_TRUE(turnUntilPixel({200, 420}, [](Pixel pixel) { return !isDimmed(pixel); }));
    const Screenshot repainted = screenshot();
    picker_.orderOut();
    ASSERT_TRUE(turnUntilPixel({400, 300}, isBackground));
    fresh.showSelection({100, 100, 250, 150});
    fresh.makeKeyAndOrderFront();
    EXPECT_TRUE(sees(repainted));
}

TEST_P(PickerOverlayTest, TheMouseIsReportedInScreenSpace) {
    show();
    pointer_.moveTo({120, 50});
    pointer_.press();
    pointer_.moveTo({300, 200});
    pointer_.release();
    ASSERT_TRUE(turnUntil([this] { return !ups_.empty(); }));
    EXPECT_EQ(downs_, (std::vector<Point>{{120, 550}}));
    EXPECT_EQ(drags_.back(), (Point{300, 400}));
    EXPECT_EQ(ups_, (std::vector<Point>{{300, 400}}));
}

TEST_P(PickerOverlayTest, OtherButtonsDoNothing) {
    show();
    pointer_.moveTo({120, 50});
    pointer_.click(3);
    pointer_.moveTo({130, 60});
    pointer_.click(1);
    ASSERT_TRUE(turnUntil([this] { return !ups_.empty(); }));
    EXPECT_EQ(downs_, (std::vector<Point>{{130, 540}}));
    EXPECT_EQ(ups_.size(), 1U);
    EXPECT_TRUE(drags_.empty());
}

TEST_P(PickerOverlayTest, APressRightAfterItIsShownCounts) {
    pointer_.moveTo({10, 590});
    picker_.makeKeyAndOrderFront();
    events_.connection().synchronise();
    pointer_.press();
    pointer_.release();
    EXPECT_TRUE(turnUntil([this] { return ups_.size() == 1; }));
    EXPECT_EQ(downs_, (std::vector<Point>{{10, 10}}));
}

TEST_P(PickerOverlayTest, EscapeCancelsAndOtherKeysDoNothing) {
    show();
    tap(spaceSymbol);
    tap(escapeSymbol);
    EXPECT_TRUE(turnUntil([this] { return cancels_ == 1; }));
    settle(events_);
    EXPECT_EQ(cancels_, 1);
}

TEST_P(PickerOverlayTest, EscapeComesAlsoWhenAnotherWindowHasTheKeyboard) {
    show();
    xcb_set_input_focus(desktop_.connection().get(), XCB_INPUT_FOCUS_PARENT, backdrop_.id(),
                        XCB_TIME_CURRENT_TIME);
    desktop_.connection().synchronize();
    tap(escapeSymbol);
    EXPECT_TRUE(turnUntil([this] { return cancels_ == 1; }));
}

TEST_P(PickerOverlayTest, WithSeveralScreensOneKeyIsOneCancel) {
    OverlayWindow other(overlays_, {800, 0, 200, 600}, callbacks());
    show();
    other.makeKeyAndOrderFront();
    tap(escapeSymbol);
    ASSERT_TRUE(turnUntil([this] { return cancels_ > 0; }));
    settle(events_);
    EXPECT_EQ(cancels_, 1);
}

TEST_P(PickerOverlayTest, AnotherProgramMayHoldTheKeyboardAndTheMouse) {
    xcb_connection_t *const user = desktop_.connection().get();
    xcb_discard_reply(user, xcb_grab_keyboard(user, 0, desktop_.connection().root(),
                                              XCB_TIME_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                              XCB_GRAB_MODE_ASYNC)
                                .sequence);
    desktop_.connection().synchronize();
    show();
    tap(escapeSymbol);
    settle(events_);
    EXPECT_EQ(cancels_, 0);
    xcb_ungrab_keyboard(user, XCB_TIME_CURRENT_TIME);
    desktop_.connection().synchronize();
    tap(escapeSymbol);
    EXPECT_TRUE(turnUntil([this] { return cancels_ == 1; }));
}

TEST_P(PickerOverlayTest, TheKeyboardGoesBackToWhoHadIt) {
    xcb_set_input_focus(desktop_.connection().get(), XCB_INPUT_FOCUS_PARENT, backdrop_.id(),
                        XCB_TIME_CURRENT_TIME);
    desktop_.connection().synchronize();
    show();
    EXPECT_NE(focus(), backdrop_.id());
    picker_.orderOut();
    EXPECT_EQ(focus(), backdrop_.id());
    tap(escapeSymbol);
    settle(events_);
    EXPECT_EQ(cancels_, 0);
}

TEST_P(PickerOverlayTest, ItMayEndInsideItsOwnEvents) {
    int events = 0;
    std::unique_ptr<OverlayWindow> brief;
    const auto end = [&](Point) {
        ++events;
        brief.reset();
    };
    brief = std::make_unique<OverlayWindow>(
        overlays_, Rectangle{0, 0, 800, screenHeight},
        OverlayCallbacks{.onMouseDown = end, .onCancel = [&] { end({}); }});
    brief->makeKeyAndOrderFront();
    events_.connection().synchronise();
    pointer_.click();
    EXPECT_TRUE(turnUntil([&events] { return events == 1; }));
    EXPECT_TRUE(shownOverlays().empty());
    brief = std::make_unique<OverlayWindow>(
        overlays_, Rectangle{0, 0, 800, screenHeight},
        OverlayCallbacks{.onMouseDown = end, .onCancel = [&] { end({}); }});
    brief->makeKeyAndOrderFront();
    events_.connection().synchronise();
    tap(escapeSymbol);
    EXPECT_TRUE(turnUntil([&events] { return events == 2; }));
    EXPECT_TRUE(shownOverlays().empty());
}

TEST_P(PickerOverlayTest, ItFollowsTheCompositor) {
    show();
    picker_.showSelection({200, 300, 300, 120});
    const auto showsAll = [](const Screenshot &screen) {
        return isDimmed(screen.at({100, 100})) && isBlue(screen.at({203, 300}));
    };
    ASSERT_TRUE(turnUntilScreen(showsAll));
    const auto toggle = [this](bool isOn) {
        if (isOn) {
            desktop_.startCompositor();
        } else {
            desktop_.stopCompositor();
        }
    };
    toggle(!GetParam());
    EXPECT_TRUE(turnUntilScreen(showsAll));
    toggle(GetParam());
    EXPECT_TRUE(turnUntilScreen(showsAll));
    pointer_.moveTo({400, 400});
    pointer_.click();
    EXPECT_TRUE(turnUntil([this] { return ups_.size() == 1; }));
    tap(escapeSymbol);
    EXPECT_TRUE(turnUntil([this] { return cancels_ == 1; }));
}

INSTANTIATE_TEST_SUITE_P(With, PickerOverlayTest, testing::Bool(), compositing);

} // namespace

} // namespace corvane::contract
