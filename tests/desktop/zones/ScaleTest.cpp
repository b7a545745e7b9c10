#include "PickTest.h"
#include "harness/probes/WindowTree.h"

#include <X11/keysym.h>

#include <algorithm>
#include <optional>

namespace corvane::desktop {

namespace {

/// Everything lies on the pixel the user has pointed at, whatever size the toolkit draws in.
class ScaleTest : public PickTest, public testing::WithParamInterface<const char *> {
  protected:
    static constexpr Area zone{403, 327, 151, 99};
    static constexpr Position click{461, 371};

    std::unique_ptr<CorvaneProcess> corvane_ = start(
        {.clickMode = "zone", .clickRate = 10}, {.environment = {{"QT_SCALE_FACTOR", GetParam()}}});
};

TEST_P(ScaleTest, ZoneOutlineRingAndClicksAgreeToThePixel) {
    openPicker();
    pointer_.drag({zone.x, zone.y}, {zone.x + zone.width, zone.y + zone.height});
    EXPECT_TRUE(corvane_->waitForLog("Zone selected: (403.0, 327.0, 151.0, 99.0)"))
        << corvane_->story();
    ASSERT_TRUE(answerAlert(XK_Return));
    ASSERT_TRUE(waitUntilIdle());

    pointer_.moveTo(click);
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitUntil([this] { return isOutlined(screenshot(), zone); })) << corvane_->story();
    EXPECT_TRUE(hasBadge(screenshot(), zone));
    ASSERT_TRUE(waitForMoreClicks(3));
    EXPECT_EQ(client_.events().back().position, click);
    // The click is on the corner of its pixel, and so is the middle of the ring.
    EXPECT_TRUE(waitUntil([this] {
        const auto ring = ringAround(screenshot(), click);
        return ring && ring->width > 20 && ring->x + ring->width / 2 == click.x &&
               ring->y + ring->height / 2 == click.y && ring->width == ring->height;
    }));

    // The last pixel of the zone is clicked, the one after is not.
    pointer_.moveTo({zone.x + zone.width - 1, zone.y + zone.height - 1});
    EXPECT_TRUE(waitForMoreClicks(2));
    pointer_.moveTo({zone.x + zone.width, click.y});
    EXPECT_TRUE(staysQuiet());
    pointer_.moveTo({zone.x, zone.y});
    EXPECT_TRUE(waitForMoreClicks(2));
    pointer_.moveTo({click.x, zone.y - 1});
    EXPECT_TRUE(staysQuiet());
}

INSTANTIATE_TEST_SUITE_P(Factor, ScaleTest, testing::Values("1", "1.5", "2"), [](const auto &each) {
    std::string name = "times" + std::string(each.param);
    std::ranges::replace(name, '.', '_');
    return name;
});

TEST(NarrowScreenTest, AnAlertHasRoomAtTwiceTheSize) {
    const VirtualDesktop desktop({.width = 640, .height = 960, .takesStatusIcons = false});
    CorvaneProcess corvane(desktop, {.environment = {{"QT_SCALE_FACTOR", "2"}}});
    std::optional<SeenWindow> notice;
    ASSERT_TRUE(waitUntil([&] {
        for (const SeenWindow &window : corvaneWindows(desktop.connection())) {
            if (window.title == "No panel shows Corvane here") {
                notice = window;
            }
        }
        return notice.has_value();
    })) << corvane.story();
    EXPECT_LE(notice->area.width, 640);
    EXPECT_GE(notice->area.x, 0);
    EXPECT_LE(notice->area.x + notice->area.width, 640);
    EXPECT_LE(notice->area.y + notice->area.height, 960);
}

} // namespace

} // namespace corvane::desktop
