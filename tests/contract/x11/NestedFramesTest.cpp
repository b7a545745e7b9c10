#include "SampleWindow.h"
#include "WindowSystemTest.h"
#include "platform/linux/timing/MainQueue.h"
#include "platform/x11/windows/ClientWindows.h"
#include "platform/x11/windows/WindowAncestry.h"
#include "platform/x11/windows/WindowReader.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace corvane::contract {

namespace {

using desktop::DisplayConnection;

/// Under a window manager that puts windows into a frame within a frame.
class NestedFramesTest : public WindowSystemTest {
  protected:
    NestedFramesTest() : WindowSystemTest({.windowManager = desktop::WindowManager::none}) {
        reparent(inner_.id(), outer_.id());
        reparent(client_.id(), inner_.id());
        client_.setTitle("Nested");
        for (const SampleWindow *window : {&manager_, &client_, &inner_, &outer_}) {
            window->map();
        }
        manager_.setNumbers("_NET_SUPPORTING_WM_CHECK", "WINDOW", {manager_.id()});
        setOfRoot("_NET_SUPPORTING_WM_CHECK", manager_.id());
        setOfRoot("_NET_CLIENT_LIST", client_.id());
        setOfRoot("_NET_CLIENT_LIST_STACKING", client_.id());
    }

    /// As the events so far describe them.
    x11::WindowInfo followed() {
        clientWindows_.connection().synchronise();
        const auto windows = clientWindows_.windowsOf({getpid()});
        return windows.empty() ? x11::WindowInfo{} : *windows.front();
    }

    /// As the server reports them on request.
    x11::WindowInfo asked() {
        const std::array windows{client_.id()};
        const auto info = reader_.info(windows);
        return info.empty() ? x11::WindowInfo{} : info.front();
    }

    Point place() {
        const x11::WindowInfo facts = followed();
        return {facts.bounds.x, facts.bounds.y};
    }

    bool comesTo(Point expected) {
        return turnUntil([&] { return place() == expected; });
    }

    /// Whether the change is followed without a request to the server. Once in a while the
    /// list of windows is read again, to be sure; hardly every time.
    bool isFollowedUnasked(const std::function<void(std::int16_t value)> &change) {
        constexpr std::int16_t attempts = 20;
        for (std::int16_t attempt = 0; attempt < attempts; ++attempt) {
            followed();
            change(attempt);
            const auto before = xcb_no_operation(clientWindows_.connection().get()).sequence;
            // The one request is that of the synchronising.
            const x11::WindowInfo facts = followed();
            const auto after = xcb_no_operation(clientWindows_.connection().get()).sequence;
            EXPECT_EQ(facts, asked());
            if (after - before == 2) {
                return true;
            }
        }
        return false;
    }

    void reparent(xcb_window_t window, xcb_window_t parent, std::int16_t x = 0,
                  std::int16_t y = 0) const {
        xcb_reparent_window(connection().get(), window, parent, x, y);
        connection().synchronize();
    }

    void setBorder(const SampleWindow &window, std::uint32_t width) const {
        xcb_configure_window(connection().get(), window.id(), XCB_CONFIG_WINDOW_BORDER_WIDTH,
                             &width);
        connection().synchronize();
    }

    /// Where it moves when the window around it is resized.
    void setGravity(const SampleWindow &window, std::uint32_t gravity) const {
        xcb_change_window_attributes(connection().get(), window.id(), XCB_CW_WIN_GRAVITY, &gravity);
        connection().synchronize();
    }

    /// The synthetic event in which a window manager reports the position of a window.
    void tellPlace(std::int16_t x, std::int16_t y) const {
        xcb_configure_notify_event_t event{};
        event.response_type = XCB_CONFIGURE_NOTIFY;
        event.event = client_.id();
        event.window = client_.id();
        event.x = x;
        event.y = y;
        event.width = 1;
        event.height = 1;
        xcb_send_event(connection().get(), 0, client_.id(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char *>(&event));
        connection().synchronize();
    }

    const DisplayConnection &connection() const { return desktop_.connection(); }

    SampleWindow manager_{connection(), {.isOverride = true}};
    SampleWindow outer_{connection(), {.x = 50, .y = 60}};
    SampleWindow inner_{connection(), {}};
    SampleWindow client_{connection(), {}};

  private:
    void setOfRoot(std::string_view property, xcb_window_t window) const {
        xcb_change_property(connection().get(), XCB_PROP_MODE_REPLACE, connection().root(),
                            connection().atom(property), XCB_ATOM_WINDOW, 32, 1, &window);
        connection().synchronize();
    }

    linux::MainQueue mainQueue_;
    x11::ClientWindows clientWindows_{x11::XcbConnection::open().value(), mainQueue_};
    x11::WindowReader reader_{events_.connection()};
};

TEST_F(NestedFramesTest, AWindowIsFollowedWhicheverFrameMoves) {
    ASSERT_TRUE(comesTo({50, 60}));
    inner_.moveTo(3, 20);
    EXPECT_TRUE(comesTo({53, 80}));
    outer_.moveTo(200, 100);
    EXPECT_TRUE(comesTo({203, 120}));
    client_.moveTo(1, 1);
    EXPECT_TRUE(comesTo({204, 121}));
}

TEST_F(NestedFramesTest, AFrameThatIsTakenAwayIsNoticed) {
    ASSERT_TRUE(comesTo({50, 60}));
    reparent(inner_.id(), connection().root(), 7, 8);
    EXPECT_TRUE(comesTo({7, 8}));
    inner_.moveTo(300, 20);
    EXPECT_TRUE(comesTo({300, 20}));
}

TEST_F(NestedFramesTest, AMovingWindowIsNotAskedFor) {
    ASSERT_TRUE(comesTo({50, 60}));
    EXPECT_TRUE(isFollowedUnasked([this](std::int16_t value) { outer_.moveTo(200, value); }));
    EXPECT_TRUE(isFollowedUnasked([this](std::int16_t value) { inner_.moveTo(value, 30); }));
    EXPECT_TRUE(isFollowedUnasked([this](std::int16_t value) { client_.moveTo(5, value); }));
}

TEST_F(NestedFramesTest, WhatAWindowManagerTellsProgramsMovesNothing) {
    ASSERT_TRUE(comesTo({50, 60}));
    EXPECT_TRUE(isFollowedUnasked([this](std::int16_t value) { tellPlace(value, 700); }));
    EXPECT_EQ(place(), (Point{50, 60}));
    outer_.moveTo(200, 100);
    EXPECT_EQ(place(), (Point{200, 100}));
}

TEST_F(NestedFramesTest, BordersAreCounted) {
    ASSERT_TRUE(comesTo({50, 60}));
    setBorder(outer_, 4);
    EXPECT_EQ(place(), (Point{54, 64}));
    setBorder(client_, 3);
    EXPECT_EQ(place(), (Point{57, 67}));
    EXPECT_TRUE(isFollowedUnasked([this](std::int16_t value) { outer_.moveTo(value, 100); }));
    outer_.moveTo(100, 100);
    EXPECT_EQ(place(), (Point{107, 107}));
}

TEST_F(NestedFramesTest, AWindowThatItsFramePushesIsFollowed) {
    setGravity(client_, XCB_GRAVITY_SOUTH_EAST);
    ASSERT_TRUE(comesTo({50, 60}));
    inner_.resizeTo(320, 230);
    EXPECT_EQ(place(), (Point{70, 90}));
    EXPECT_TRUE(isFollowedUnasked([this](std::int16_t value) { outer_.moveTo(value, 100); }));
    outer_.moveTo(100, 100);
    EXPECT_EQ(place(), (Point{120, 130}));
}

TEST_F(NestedFramesTest, AFrameMayComeAndGoWhileTheWindowMoves) {
    const SampleWindow another(connection(), {.x = 400, .y = 300});
    ASSERT_TRUE(comesTo({50, 60}));
    for (std::int16_t step = 1; step <= 20; ++step) {
        outer_.moveTo(step, 60);
        reparent(inner_.id(), another.id(), step, 5);
        another.moveTo(400, static_cast<std::int16_t>(300 + step));
        EXPECT_EQ(followed(), asked());
        inner_.moveTo(step, 9);
        another.moveTo(350, static_cast<std::int16_t>(300 + step));
        EXPECT_EQ(place(), (Point{350.0 + step, 309.0 + step}));
        reparent(inner_.id(), outer_.id(), 0, step);
        EXPECT_EQ(place(), (Point{double(step), 60.0 + step}));
    }
}

TEST_F(NestedFramesTest, AMoveFromBeforeTheAnswerIsForgotten) {
    const auto watching = x11::XcbConnection::open().value();
    x11::EventMasks masks(*watching);
    {
        const auto events = masks.select(outer_.id(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        watching->synchronise();
        outer_.moveTo(100, 100);
    }
    // This move causes no event.
    watching->synchronise();
    outer_.moveTo(200, 150);

    x11::WindowAncestry ancestry(*watching, masks, client_.id());
    EXPECT_EQ(ancestry.origin(), (Point{200, 150}));
    outer_.moveTo(300, 150);
    watching->synchronise();
    std::vector<Point> places;
    while (const x11::XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(watching->get())}) {
        EXPECT_TRUE(ancestry.update(*event));
        places.push_back(ancestry.origin().value_or(Point{}));
    }
    EXPECT_EQ(places, (std::vector<Point>{{200, 150}, {300, 150}}));
}

/// Whatever happens to a window and its frames, in whatever order.
class AnyChangeOfFramesTest : public NestedFramesTest,
                              public testing::WithParamInterface<unsigned> {
  protected:
    void changeAnything() {
        const SampleWindow &window = *windows_.at(chance(windows_.size()));
        switch (chance(8)) {
        case 0:
            window.resizeTo(std::uint16_t(1 + chance(600)), std::uint16_t(1 + chance(400)));
            break;
        case 1:
            setBorder(window, chance(9));
            break;
        case 2:
            setGravity(window, chance(XCB_GRAVITY_STATIC + 1));
            break;
        case 3:
            // Into itself or what it contains it cannot be put: then nothing happens.
            reparent(window.id(), anyParent(), anyPlace(), anyPlace());
            break;
        case 4:
            tellPlace(anyPlace(), anyPlace());
            break;
        case 5:
            chance(2) == 0 ? window.unmap() : window.map();
            break;
        case 6:
            window.raise();
            break;
        default:
            window.moveTo(anyPlace(), anyPlace());
            break;
        }
    }

    std::uint32_t chance(std::size_t end) {
        return std::uniform_int_distribution<std::uint32_t>(0, std::uint32_t(end - 1))(random_);
    }

  private:
    std::int16_t anyPlace() { return std::int16_t(int(chance(1000)) - 200); }

    xcb_window_t anyParent() {
        const auto index = chance(windows_.size() + 1);
        return index < windows_.size() ? windows_.at(index)->id() : connection().root();
    }

    std::mt19937 random_{GetParam()};
    SampleWindow another_{connection(), {.x = 400, .y = 300}};
    std::array<const SampleWindow *, 4> windows_{&client_, &inner_, &outer_, &another_};
};

TEST_P(AnyChangeOfFramesTest, IsFollowedAsIfTheServerWereAsked) {
    for (int round = 0; round < 300; ++round) {
        const auto changes = 1 + chance(4);
        for (std::uint32_t count = 0; count < changes; ++count) {
            changeAnything();
        }
        ASSERT_EQ(followed(), asked()) << "in round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyChangeOfFramesTest, testing::Values(1U, 2U, 3U, 4U));

/// Under a real window manager, where moves and resizes are wishes that take their time.
class ManagedMovesTest : public EveryWindowManagerTest {
  protected:
    x11::WindowInfo followed(const SampleWindow &window) {
        const auto windows = clientWindows_.windowsOf({getpid()});
        const auto found = std::ranges::find(windows, window.id(), &x11::WindowInfo::window);
        return found != windows.end() ? **found : x11::WindowInfo{};
    }

    x11::WindowInfo asked(const SampleWindow &window) const {
        const std::array windows{window.id()};
        const auto info = reader_.info(windows);
        return info.empty() ? x11::WindowInfo{} : info.front();
    }

  private:
    linux::MainQueue mainQueue_;
    x11::ClientWindows clientWindows_{x11::XcbConnection::open().value(), mainQueue_};
    x11::WindowReader reader_{events_.connection()};
};

TEST_P(ManagedMovesTest, AreFollowedToWhereTheServerHasTheWindow) {
    const SampleWindow one(desktop_.connection(), {.x = 40, .y = 50});
    const SampleWindow other(desktop_.connection(), {.x = 500, .y = 300});
    one.map();
    other.map();
    std::mt19937 random(1);
    const auto chance = [&random](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    for (int round = 0; round < 25; ++round) {
        for (int count = 0; count < 8; ++count) {
            const SampleWindow &window = chance(0, 1) == 0 ? one : other;
            if (chance(0, 3) == 0) {
                window.resizeTo(std::uint16_t(chance(100, 500)), std::uint16_t(chance(100, 400)));
            } else {
                window.moveTo(std::int16_t(chance(-50, 900)), std::int16_t(chance(0, 600)));
            }
            followed(one);
        }
        for (const SampleWindow *window : {&one, &other}) {
            ASSERT_TRUE(turnUntil([&] {
                const x11::WindowInfo truth = asked(*window);
                return truth.isOnScreen && followed(*window) == truth;
            })) << "in round "
                << round;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, ManagedMovesTest, windowManagers, windowManagerName);

} // namespace

} // namespace corvane::contract
