#include "DesktopTest.h"
#include "harness/servers/ServerSockets.h"

#include <X11/keysym.h>

namespace corvane::desktop {

namespace {

/// The zone in its window's client area; the title bar makes it lie higher in the frame.
constexpr Area relativeZone{100, 80, 120, 90};
constexpr Position inZone{150, 120};

Position operator+(Position one, Position other) { return {one.x + other.x, one.y + other.y}; }

/// Runs in a zone that follows the window.
class AnchorTest : public DesktopTest {
  protected:
    /// The window manager's frame starts further up and left than the client area.
    Position frameCorner() const {
        const auto extents = frameExtents();
        const Position client = client_.position(window_);
        return {client.x - extents.x, client.y - extents.y};
    }

    /// The width of the frame's left and top side.
    Position frameExtents() const {
        const DisplayConnection &connection = desktop_.connection();
        const auto values = connection.properties(client_.windowId(window_), "_NET_FRAME_EXTENTS");
        return values.size() == 4
                   ? Position{static_cast<int>(values[0]), static_cast<int>(values[2])}
                   : Position{};
    }

    static Settings settings() {
        return {.clickMode = "zone",
                .clickRate = 50,
                .zone = Area{20, 20, 50, 50},
                .anchor = Settings::Anchor{
                    .application = "Target", .title = "Target", .relative = relativeZone}};
    }
};

TEST_F(AnchorTest, TheZoneIsWhereTheWindowIs) {
    const auto corvane = start(settings());
    keyboard_.pressHotKey();
    const Position corner = frameCorner();
    const std::string zone = "(" + std::to_string(corner.x + relativeZone.x) + ".0, " +
                             std::to_string(corner.y + relativeZone.y) + ".0, 120.0, 90.0)";
    EXPECT_TRUE(corvane->waitForLog("Resolved window anchor: zone at " + zone)) << corvane->story();
    pointer_.moveTo(corner + Position{relativeZone.x, relativeZone.y});
    EXPECT_TRUE(waitForMoreClicks(2));
    pointer_.moveTo(corner + Position{relativeZone.x + relativeZone.width, relativeZone.y});
    EXPECT_TRUE(staysQuiet());
}

TEST_F(AnchorTest, TheZoneFollowsTheWindow) {
    const auto corvane = start(settings());
    pointer_.moveTo(client_.position(window_) + inZone);
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane->story();
    for (const Position step : {Position{150, 60}, Position{-200, 110}, Position{90, -140}}) {
        const Position before = client_.position(window_) + inZone;
        client_.move(window_, client_.position(window_) + step);
        pointer_.moveTo(client_.position(window_) + inZone);
        EXPECT_TRUE(waitForMoreClicks(2));
        pointer_.moveTo(before);
        EXPECT_TRUE(staysQuiet());
    }
}

/// The window's process is not the oldest of the application's two.
TEST_F(AnchorTest, TheZoneFollowsAWindowOfAYoungerProcess) {
    ClickClient younger(desktop_);
    const int window = younger.open({.title = "Younger", .x = 760, .y = 420});
    Settings anchored = settings();
    anchored.anchor->title = "Younger";
    const auto corvane = start(anchored);
    for (const Position step : {Position{-60, 20}, Position{40, -110}}) {
        keyboard_.pressHotKey();
        younger.move(window, younger.position(window) + step);
        pointer_.moveTo(younger.position(window) + inZone);
        EXPECT_TRUE(younger.waitForClicks(younger.pressCount() + 2)) << corvane->story();
        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ", step.x < 0 ? 1 : 2))
            << corvane->story();
    }
    EXPECT_EQ(clickCount(), 0);
}

TEST_F(AnchorTest, TheZoneStaysWhenTheWindowGoes) {
    ClickClient other(desktop_);
    const auto corvane = start(settings());
    pointer_.moveTo(client_.position(window_) + inZone);
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane->story();
    other.open({.title = "Beneath",
                .className = "Beneath",
                .x = 200,
                .y = 150,
                .width = 700,
                .height = 500});
    client_.close(window_);
    EXPECT_TRUE(other.waitForClicks(3)) << corvane->story();
}

TEST_F(AnchorTest, ANewTitleLosesTheWindow) {
    const auto corvane = start(settings());
    pointer_.moveTo(client_.position(window_) + inZone);
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane->story();
    client_.retitle(window_, "Another");
    client_.move(window_, client_.position(window_) + Position{-130, 0});
    EXPECT_TRUE(waitForMoreClicks(2));
}

/// The server drops the connection with which the program watches other programs' windows.
TEST_F(AnchorTest, TheZoneFollowsAfterALostConnection) {
    const auto corvane = start(settings());
    pointer_.moveTo(client_.position(window_) + inZone);
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane->story();

    const ServerSockets sockets(corvane->process().pid());
    const DisplayConnection &other = desktop_.connection();
    ASSERT_TRUE(sockets.cutTheOneThatReceives([&] {
        xcb_change_property(other.get(), XCB_PROP_MODE_REPLACE, client_.windowId(window_),
                            other.atom("SOMETHING"), XCB_ATOM_CARDINAL, 32, 0, nullptr);
        other.synchronize();
    }));
    ASSERT_TRUE(corvane->waitForLog("The connection that watches windows was lost and is replaced"))
        << corvane->story();
    const Position before = client_.position(window_) + inZone;
    client_.move(window_, client_.position(window_) + Position{150, 60});
    pointer_.moveTo(client_.position(window_) + inZone);
    EXPECT_TRUE(waitForMoreClicks(2)) << corvane->story();
    pointer_.moveTo(before);
    EXPECT_TRUE(staysQuiet());

    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    pointer_.moveTo(client_.position(window_) + inZone);
    keyboard_.pressHotKey();
    EXPECT_TRUE(waitForMoreClicks(2)) << corvane->story();
}

TEST_F(AnchorTest, AsksWhenTheWindowIsMissing) {
    client_.retitle(window_, "Another");
    const auto corvane = start(settings());
    keyboard_.pressHotKey();
    ASSERT_TRUE(answerAlert(XK_Escape)) << corvane->story();
    EXPECT_FALSE(corvane->waitForLogBeginning("Starting clicker", 1, std::chrono::seconds::zero()));

    keyboard_.pressHotKey();
    ASSERT_TRUE(answerAlert(XK_Return)) << corvane->story();
    EXPECT_TRUE(corvane->waitForLogBeginning("Starting clicker: mode=zone")) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
