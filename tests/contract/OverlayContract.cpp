#include "BackEnd.h"
#include "platform/ContinuousClock.h"
#include "platform/OverlayWindows.h"
#include "platform/Platform.h"

#include <chrono>
#include <vector>

namespace corvane::contract {

namespace {

using std::chrono::milliseconds;

constexpr Path circle{.kind = Path::Kind::ellipse, .bounds = {10, 10, 20, 20}};

constexpr BorderlessWindow smallWindow{.frame = {100, 100, 40, 40}};

class OverlayContract : public ContractTest {
  protected:
    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window = smallWindow) {
        auto overlay = platform().overlayWindows().create(window, {});
        EXPECT_NE(overlay, nullptr);
        return overlay;
    }

    static Animation ripple(milliseconds duration) {
        return {.key = "ripple",
                .shape = {.path = circle, .stroke = Colour{ColourName::systemBlue}},
                .endPath = {.kind = Path::Kind::ellipse, .bounds = {0, 0, 40, 40}},
                .duration = duration,
                .timing = TimingFunction::easeOut};
    }

    /// Lets that much time pass.
    void wait(milliseconds duration) {
        const auto end = platform().clock().now() + duration;
        EXPECT_TRUE(backEnd().turnUntil([&] { return platform().clock().now() >= end; }));
    }
};

TEST_P(OverlayContract, BearsEveryUseInAnyOrder) {
    const auto overlay = create();
    overlay->orderOut();
    overlay->setDrawing({Shape{.path = circle, .fill = Colour{ColourName::systemGreen, 0.5}}});
    overlay->orderFront();
    overlay->setFrame({-50, -50, 400, 300});
    overlay->setDrawing({});
    overlay->makeKeyAndOrderFront();
    overlay->setFrame({0, 0, 0, 0});
    overlay->orderOut();
    overlay->orderFront();
    wait(milliseconds(5));
}

TEST_P(OverlayContract, IsWhereItWasPut) {
    const auto overlay = create();
    EXPECT_EQ(overlay->frame(), smallWindow.frame);
    overlay->setFrame({50, 60, 30, 20});
    overlay->orderFront();
    EXPECT_EQ(overlay->frame(), (Rectangle{50, 60, 30, 20}));
}

TEST_P(OverlayContract, AnAnimationEndsOnceAndLater) {
    const auto overlay = create();
    overlay->orderFront();
    int completions = 0;
    overlay->play(ripple(milliseconds(20)), [&completions] { ++completions; });
    EXPECT_EQ(completions, 0);
    ASSERT_TRUE(backEnd().turnUntil([&completions] { return completions > 0; }));
    wait(milliseconds(50));
    EXPECT_EQ(completions, 1);
}

TEST_P(OverlayContract, AnAnimationEndsAlsoOffTheScreen) {
    const auto overlay = create();
    bool isCompleted = false;
    overlay->play(ripple(milliseconds(10)), [&isCompleted] { isCompleted = true; });
    EXPECT_TRUE(backEnd().turnUntil([&isCompleted] { return isCompleted; }));
}

TEST_P(OverlayContract, ADestroyedOverlayCallsNothing) {
    auto overlay = create();
    overlay->orderFront();
    int completions = 0;
    overlay->play(ripple(milliseconds(10)), [&completions] { ++completions; });
    overlay.reset();
    wait(milliseconds(40));
    EXPECT_EQ(completions, 0);
}

TEST_P(OverlayContract, AnOverlayMayEndInsideItsCompletion) {
    auto overlay = create();
    overlay->orderFront();
    bool isCompleted = false;
    overlay->play(ripple(milliseconds(10)), [&] {
        overlay.reset();
        isCompleted = true;
    });
    EXPECT_TRUE(backEnd().turnUntil([&isCompleted] { return isCompleted; }));
    wait(milliseconds(20));
}

TEST_P(OverlayContract, MouseEventsOnTheirWayToAnOverlayThatIsOrderedOutAreDropped) {
    std::vector<Point> reported;
    const auto report = [&reported](Point point) { reported.push_back(point); };
    const auto createPicker = [&](const Rectangle &frame) {
        return platform().overlayWindows().create({.frame = frame,
                                                   .level = window_level::screenSaver,
                                                   .background = {ColourName::black, 0.3},
                                                   .ignoresMouseEvents = false},
                                                  {.mouseDown = report, .mouseUp = report});
    };
    const auto overlay = createPicker({100, 100, 40, 40});
    const auto other = createPicker({200, 100, 40, 40});
    overlay->orderFront();
    other->orderFront();
    backEnd().click({110, 120});
    EXPECT_TRUE(backEnd().turnUntil([&reported] { return reported.size() == 2; }));
    EXPECT_EQ(reported, std::vector<Point>(2, {110, 120}));

    reported.clear();
    backEnd().click({110, 120});
    overlay->orderOut();
    // Events come in order: whatever there was for the first overlay has come before this.
    backEnd().click({210, 120});
    EXPECT_TRUE(backEnd().turnUntil([&reported] { return reported.size() >= 2; }));
    EXPECT_EQ(reported, std::vector<Point>(2, {210, 120}));
}

CORVANE_WINDOW_CONTRACT(OverlayContract);

} // namespace

} // namespace corvane::contract
