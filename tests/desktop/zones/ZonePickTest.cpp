#include "PickTest.h"
#include "harness/TextFile.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;
using testing::Not;

/// Picks a zone beside the window and over it.
class ZonePickTest : public PickTest {
  protected:
    /// On the bare desktop.
    static constexpr Position corner{900, 100};

    std::unique_ptr<CorvaneProcess> corvane_ = start({.clickMode = "zone", .clickRate = 20});
};

TEST_F(ZonePickTest, ADragOnTheDesktopDefinesTheZone) {
    openPicker();
    pointer_.drag(corner, {corner.x + 200, corner.y + 80});
    EXPECT_TRUE(corvane_->waitForLog("Zone selected: (900.0, 100.0, 200.0, 80.0)"))
        << corvane_->story();
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_TRUE(isSaved("\"zoneRect\""));
    EXPECT_THAT(readFile(settingsFile(desktop_)), HasSubstr("\"width\" : 200,"));
    EXPECT_THAT(readFile(settingsFile(desktop_)), Not(HasSubstr("windowAnchor")));
    EXPECT_TRUE(panel_.line("Defined Zone (200×80)").has_value());
}

TEST_F(ZonePickTest, ADragTheOtherWayRoundIsTheSame) {
    openPicker();
    pointer_.drag({corner.x + 200, corner.y + 80}, corner);
    EXPECT_TRUE(corvane_->waitForLog("Zone selected: (900.0, 100.0, 200.0, 80.0)"))
        << corvane_->story();
}

TEST_F(ZonePickTest, EscapeCancels) {
    openPicker();
    keyboard_.tap(keyboard_.keyOf(XK_a));
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    EXPECT_TRUE(corvane_->waitForLog("Zone picker cancelled")) << corvane_->story();
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_THAT(readFile(settingsFile(desktop_)), Not(HasSubstr("zoneRect")));
}

TEST_F(ZonePickTest, EscapeDuringADragCancels) {
    openPicker();
    pointer_.moveTo(corner);
    pointer_.press();
    pointer_.moveTo({corner.x + 100, corner.y + 100});
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    EXPECT_TRUE(corvane_->waitForLog("Zone picker cancelled")) << corvane_->story();
    pointer_.release();
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(corvane_->logCount("Zone picker cancelled"), 1);
}

TEST_F(ZonePickTest, ADragThatIsTooSmallCancels) {
    openPicker();
    pointer_.drag(corner, {corner.x + 9, corner.y + 50});
    EXPECT_TRUE(corvane_->waitForLog("Zone picker cancelled")) << corvane_->story();
    EXPECT_TRUE(waitUntilIdle());
}

TEST_F(ZonePickTest, TheSmallestZoneIsTenByTen) {
    openPicker();
    pointer_.drag(corner, {corner.x + 10, corner.y + 10});
    EXPECT_TRUE(corvane_->waitForLog("Zone selected: (900.0, 100.0, 10.0, 10.0)"))
        << corvane_->story();
}

TEST_F(ZonePickTest, OverAWindowTheZoneCanBeAnchored) {
    openPicker();
    pointer_.drag({400, 350}, {550, 450});
    EXPECT_TRUE(corvane_->waitForLog("Zone selected: (400.0, 350.0, 150.0, 100.0)"))
        << corvane_->story();
    EXPECT_TRUE(answerAlert(XK_Return));
    EXPECT_TRUE(corvane_->waitForLog("Zone anchored to Target")) << corvane_->story();
    EXPECT_TRUE(isSaved("\"windowTitle\" : \"Target\""));
    EXPECT_TRUE(
        waitUntil([this] { return panel_.line("Defined Zone (150×100) (Target)").has_value(); }));
    EXPECT_EQ(client_.pressCount(), 0);
}

TEST_F(ZonePickTest, TheScreenIsDimmedAndTheDragIsDrawn) {
    const auto brightness = [](Pixel pixel) { return pixel.red + pixel.green + pixel.blue; };
    const int before = brightness(screenshot().at(target));
    openPicker();
    EXPECT_TRUE(waitUntil([&] { return brightness(screenshot().at(target)) < before * 8 / 10; }));
    pointer_.moveTo(corner);
    pointer_.press();
    pointer_.moveTo({corner.x + 200, corner.y + 150});
    EXPECT_TRUE(
        waitUntil([&] { return screenshot().count({corner.x + 100, corner.y}, 5, isBlue) > 0; }));
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    pointer_.release();
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(brightness(screenshot().at(target)), before);
}

} // namespace

} // namespace corvane::desktop
