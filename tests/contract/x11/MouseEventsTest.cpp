#include "platform/x11/click/MouseEvents.h"

#include "EnvironmentVariable.h"
#include "WaitUntil.h"
#include "XClient.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <utility>
#include <vector>

namespace corvane::contract {

namespace {

using platform::MouseEventType;

class MouseEventsTest : public testing::Test {
  protected:
    void SetUp() override {
        user_.coverScreen();
        user_.pointer().moveTo({120, 80});
    }

    /// The button event the window under the cursor sees next.
    xcb_button_press_event_t nextButtonEvent() {
        while (const auto event = user_.nextEvent()) {
            if (event->response_type == XCB_BUTTON_PRESS ||
                event->response_type == XCB_BUTTON_RELEASE) {
                return reinterpret_cast<const xcb_button_press_event_t &>(*event);
            }
        }
        ADD_FAILURE() << "no button event came";
        return {};
    }

    static void click(platform::MouseSession &session) {
        const auto source = session.createEventSource();
        ASSERT_NE(source, nullptr);
        const auto down = source->createMouseEvent(MouseEventType::leftMouseDown, {120, 80});
        const auto up = source->createMouseEvent(MouseEventType::leftMouseUp, {120, 80});
        ASSERT_NE(down, nullptr);
        ASSERT_NE(up, nullptr);
        down->post();
        up->post();
    }

    /// Those that say which button is pressed.
    std::vector<xcb_window_t> windowsWithRecord() {
        const auto &connection = user_.connection();
        const x11::XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            connection.get(), xcb_query_tree(connection.get(), connection.root()), nullptr));
        std::vector<xcb_window_t> windows(xcb_query_tree_children(tree.get()),
                                          xcb_query_tree_children(tree.get()) +
                                              xcb_query_tree_children_length(tree.get()));
        std::erase_if(windows, [&](xcb_window_t window) {
            return connection.properties(window, "_CORVANE_PRESSED_BUTTON").empty();
        });
        return windows;
    }

    void expectLeftClick() {
        const auto press = nextButtonEvent();
        EXPECT_EQ(press.response_type, XCB_BUTTON_PRESS);
        EXPECT_EQ(press.detail, 1);
        EXPECT_EQ(std::pair(press.root_x, press.root_y),
                  std::pair(std::int16_t{120}, std::int16_t{80}));
        const auto release = nextButtonEvent();
        EXPECT_EQ(release.response_type, XCB_BUTTON_RELEASE);
        EXPECT_EQ(release.detail, 1);
    }

    XClient user_;
    const std::unique_ptr<x11::XcbConnection> server_ = x11::XcbConnection::open().value();
    x11::MouseEvents mouseEvents_{*server_};
};

TEST_F(MouseEventsTest, AnotherProgramSeesPressAndRelease) {
    const auto session = mouseEvents_.openSession();
    click(*session);
    expectLeftClick();
}

TEST_F(MouseEventsTest, ReadsTheCursorInRootPixels) {
    const auto session = mouseEvents_.openSession();
    EXPECT_EQ(session->readyPosition(), (Point{120, 80}));
    user_.pointer().moveTo({0, 0});
    EXPECT_EQ(session->readyPosition(), (Point{0, 0}));
}

TEST_F(MouseEventsTest, IsNotReadyWhileTheUserHoldsTheButton) {
    const auto session = mouseEvents_.openSession();
    EXPECT_TRUE(session->readyPosition());
    user_.pointer().press(1);
    EXPECT_FALSE(session->readyPosition());
    user_.pointer().release(1);
    EXPECT_TRUE(session->readyPosition());
}

TEST_F(MouseEventsTest, IsReadyForTheReleaseOnceThePressBehindAGrabIsLetThrough) {
    const auto session = mouseEvents_.openSession();
    const auto source = session->createEventSource();
    const auto down = source->createMouseEvent(MouseEventType::leftMouseDown, {120, 80});
    const auto up = source->createMouseEvent(MouseEventType::leftMouseUp, {120, 80});
    user_.freezePointer();
    down->post();
    EXPECT_FALSE(session->readyPosition());
    EXPECT_FALSE(session->readyPosition());
    user_.thawPointer();
    EXPECT_TRUE(session->readyPosition());
    up->post();
    EXPECT_TRUE(session->readyPosition());
}

TEST_F(MouseEventsTest, IsNotReadyForAPressWhileAGrabHoldsTheReleaseUp) {
    const auto session = mouseEvents_.openSession();
    const auto source = session->createEventSource();
    source->createMouseEvent(MouseEventType::leftMouseDown, {120, 80})->post();
    EXPECT_TRUE(session->readyPosition());
    user_.freezePointer();
    source->createMouseEvent(MouseEventType::leftMouseUp, {120, 80})->post();
    EXPECT_FALSE(session->readyPosition());
    user_.thawPointer();
    EXPECT_TRUE(session->readyPosition());
}

TEST_F(MouseEventsTest, APressNobodyAsksAboutIsFollowedByOthers) {
    const auto session = mouseEvents_.openSession();
    for (int count = 0; count < 3; ++count) {
        click(*session);
        expectLeftClick();
    }
}

TEST_F(MouseEventsTest, PressesTheLogicalLeftButtonOfALeftHandedUser) {
    const auto rightHanded = user_.pointerMapping();
    auto leftHanded = rightHanded;
    std::swap(leftHanded.at(0), leftHanded.at(2));
    user_.setPointerMapping(leftHanded);
    const auto session = mouseEvents_.openSession();
    click(*session);
    expectLeftClick();

    // The user changes hands while the session is open.
    user_.setPointerMapping(rightHanded);
    click(*session);
    expectLeftClick();
    EXPECT_EQ(user_.pointerMapping(), rightHanded);
}

TEST_F(MouseEventsTest, IsReadyForTheReleaseWhenTheUserChangesHandsRightBeforeThePress) {
    const auto rightHanded = user_.pointerMapping();
    auto leftHanded = rightHanded;
    std::swap(leftHanded.at(0), leftHanded.at(2));
    const auto session = mouseEvents_.openSession();
    const auto source = session->createEventSource();
    const auto down = source->createMouseEvent(MouseEventType::leftMouseDown, {120, 80});
    const auto up = source->createMouseEvent(MouseEventType::leftMouseUp, {120, 80});
    user_.setPointerMapping(leftHanded);
    down->post();
    EXPECT_TRUE(session->readyPosition());
    up->post();
    EXPECT_TRUE(session->readyPosition());
    user_.setPointerMapping(rightHanded);
}

TEST_F(MouseEventsTest, MakesNothingWhereNoButtonIsTheLeftOne) {
    const auto mapping = user_.pointerMapping();
    auto withoutLeft = mapping;
    std::ranges::replace(withoutLeft, 1, 0);
    user_.setPointerMapping(withoutLeft);
    const auto session = mouseEvents_.openSession();
    const auto source = session->createEventSource();
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->createMouseEvent(MouseEventType::leftMouseDown, {120, 80}), nullptr);

    user_.setPointerMapping(mapping);
    click(*session);
    expectLeftClick();
}

TEST_F(MouseEventsTest, ALostConnectionIsReplacedAndTheButtonReleased) {
    const auto session = mouseEvents_.openSession();
    const auto source = session->createEventSource();
    const auto down = source->createMouseEvent(MouseEventType::leftMouseDown, {120, 80});
    const auto up = source->createMouseEvent(MouseEventType::leftMouseUp, {120, 80});
    down->post();
    EXPECT_TRUE(desktop::waitUntil([this] { return user_.pointer().isLeftButtonDown(); }));
    const auto marked = windowsWithRecord();
    ASSERT_EQ(marked.size(), 1);
    xcb_kill_client(user_.connection().get(), marked.front());
    user_.connection().synchronize();
    EXPECT_TRUE(user_.pointer().isLeftButtonDown());

    up->post();
    EXPECT_FALSE(user_.pointer().isLeftButtonDown());
    expectLeftClick();
    click(*session);
    expectLeftClick();
}

TEST_F(MouseEventsTest, LeavesNothingOnTheServer) {
    for (int round = 0; round < 3; ++round) {
        const auto session = mouseEvents_.openSession();
        EXPECT_EQ(windowsWithRecord().size(), 1);
        click(*session);
    }
    user_.connection().synchronize();
    EXPECT_TRUE(windowsWithRecord().empty());
}

TEST_F(MouseEventsTest, MoreSessionsThanTheServerHasPlacesForClients) {
    constexpr int places = 2100;
    for (int round = 0; round < places; ++round) {
        ASSERT_NE(mouseEvents_.openSession()->createEventSource(), nullptr);
    }
}

TEST_F(MouseEventsTest, WorksOnAThreadOfItsOwn) {
    std::thread([this] {
        const auto session = mouseEvents_.openSession();
        click(*session);
    }).join();
    expectLeftClick();
}

TEST(MouseEventsWithoutServerTest, EveryOperationFails) {
    const auto server = x11::XcbConnection::open().value();
    const EnvironmentVariable display("DISPLAY", ":65000");
    const auto session = x11::MouseEvents(*server).openSession();
    ASSERT_NE(session, nullptr);
    EXPECT_EQ(session->readyPosition(), std::nullopt);
    const auto source = session->createEventSource();
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->createMouseEvent(MouseEventType::leftMouseDown, {}), nullptr);
}

} // namespace

} // namespace corvane::contract
