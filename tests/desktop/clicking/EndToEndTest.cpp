#include "PickTest.h"
#include "harness/TextFile.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>

namespace corvane::desktop {

namespace {

Position operator+(Position one, Position other) { return {one.x + other.x, one.y + other.y}; }
Position operator-(Position one, Position other) { return {one.x - other.x, one.y - other.y}; }

bool contains(const Area &area, Position position) {
    return position.x >= area.x && position.x < area.x + area.width && position.y >= area.y &&
           position.y < area.y + area.height;
}

/// From the mouse that draws a zone to the clicks that follow its window.
class EndToEndTest : public PickTest {
  protected:
    /// Where the zone is drawn, and where it lies in the window's client area.
    static constexpr Area zone{400, 350, 150, 100};
    static constexpr Area inWindow{100, 100, 150, 100};

    void pickAnchoredZone() {
        openPicker();
        pointer_.drag({zone.x, zone.y}, {zone.x + zone.width, zone.y + zone.height});
        ASSERT_TRUE(answerAlert(XK_Return)) << corvane_->story();
        ASSERT_TRUE(waitUntilIdle());
    }

    void pickAndStart() {
        pickAnchoredZone();
        EXPECT_TRUE(isSaved("\"bundleID\" : \"Target\""));
        EXPECT_THAT(
            corvane_->log(),
            testing::IsSupersetOf({"Zone selected: (400.0, 350.0, 150.0, 100.0)",
                                   "WindowResolver: detected Target 'Target' under zone center",
                                   "Zone anchored to Target"}));
        pointer_.moveTo({475, 400});
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitForMoreClicks(2)) << corvane_->story();
    }

    /// The zone as it lies while the window is there.
    static Area zoneAt(Position window) {
        return {window.x + inWindow.x, window.y + inWindow.y, inWindow.width, inWindow.height};
    }

    std::unique_ptr<CorvaneProcess> corvane_ = start({.clickMode = "cursor", .clickRate = 50});
};

TEST_F(EndToEndTest, ClicksAreWhereTheZoneIsWhileItsWindowMovesAcrossTheScreen) {
    ASSERT_TRUE(panel_.waitForItem());
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    pickAndStart();
    Position place = client_.position(window_);
    for (const Position step : {Position{40, 20}, Position{-45, 15}}) {
        for (int count = 0; count < 8; ++count) {
            const std::size_t seen = client_.events().size();
            const Area before = zoneAt(place);
            place = place + step;
            client_.move(window_, place);
            const Area now = zoneAt(place);
            pointer_.moveTo({now.x + 75, now.y + 50});
            EXPECT_TRUE(waitForMoreClicks(2)) << corvane_->story();
            const auto events = client_.events();
            EXPECT_EQ(events.back().window, window_);
            EXPECT_TRUE(contains(now, events.back().position));
            // A click that was under way when the window moved was in the zone as it had been.
            EXPECT_TRUE(std::all_of(events.begin() + static_cast<std::ptrdiff_t>(seen),
                                    events.end(), [&](const ButtonEvent &event) {
                                        return contains(now, event.position) ||
                                               contains(before, event.position);
                                    }));
        }
    }
    EXPECT_TRUE(waitUntil([&] { return isOutlined(screenshot(), zoneAt(place)); }));
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane_->waitForLogBeginning("Clicker stopped after ")) << corvane_->story();
    EXPECT_TRUE(staysQuiet());
}

TEST_F(EndToEndTest, AWindowThatIsDraggedFastPastThePointerIsClickedInItsZoneOnly) {
    ASSERT_TRUE(panel_.waitForItem());
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    pickAndStart();
    const Position start = client_.position(window_) - Position{290, 0};
    client_.move(window_, start);
    EXPECT_TRUE(waitUntil([&] { return isOutlined(screenshot(), zoneAt(start)); }));
    EXPECT_TRUE(staysQuiet());

    // The zone passes the pointer, which stands still, to the right and back, until it was clicked.
    constexpr int step = 15;
    constexpr int steps = 40;
    const int before = clickCount();
    EXPECT_TRUE(waitUntil([&] {
        for (int count = 1; count <= 2 * steps; ++count) {
            const int distance = step * (count <= steps ? count : 2 * steps - count);
            client_.move(window_, start + Position{distance, 0});
        }
        return clickCount() > before;
    })) << corvane_->story();
    EXPECT_TRUE(waitUntil([&] { return isOutlined(screenshot(), zoneAt(start)); }));
    EXPECT_TRUE(staysQuiet());
    client_.move(window_, start + Position{290, 0});
    EXPECT_TRUE(waitForMoreClicks(2)) << corvane_->story();
}

TEST_F(EndToEndTest, AWindowIsFoundAgainWhateverItIsCalled) {
    ASSERT_TRUE(panel_.waitForItem());
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    for (const std::string &title : {std::string(), std::string(3000, 'x'),
                                     std::string("Caf\xE9 \xFF \"quoted\" \\ %@ \u20AC")}) {
        client_.retitle(window_, title);
        pickAnchoredZone();
        // Also by a program that knows it from the file alone.
        corvane_->process().signal(SIGTERM);
        ASSERT_EQ(corvane_->process().waitForEnd(), ProcessEnd{.exitCode = 0});
        corvane_ = std::make_unique<CorvaneProcess>(desktop_);
        ASSERT_TRUE(corvane_->waitUntilReady());
        ASSERT_TRUE(waitUntil([this] { return panel_.line("Define zone...").has_value(); }));
        keyboard_.pressHotKey();
        EXPECT_TRUE(
            corvane_->waitForLog("Resolved window anchor: zone at (400.0, 350.0, 150.0, 100.0)"))
            << corvane_->story();
        EXPECT_TRUE(waitUntil([this] { return isOutlined(screenshot(), zone); }));
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitUntilIdle());
    }
}

} // namespace

} // namespace corvane::desktop
