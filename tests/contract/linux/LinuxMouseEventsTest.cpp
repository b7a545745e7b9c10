#include "platform/linux/LinuxMouseEvents.h"

#include "EnvironmentVariable.h"
#include "XClient.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <utility>

namespace corvane::contract {

namespace {

using platform::MouseEventType;

class LinuxMouseEventsTest : public testing::Test {
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
    x11::LinuxMouseEvents mouseEvents_;
};

TEST_F(LinuxMouseEventsTest, AnotherProgramSeesPressAndRelease) {
    const auto session = mouseEvents_.openSession();
    click(*session);
    expectLeftClick();
}

TEST_F(LinuxMouseEventsTest, ReadsTheCursorInRootPixels) {
    const auto session = mouseEvents_.openSession();
    EXPECT_EQ(session->cursorLocation(), (Point{120, 80}));
    user_.pointer().moveTo({0, 0});
    EXPECT_EQ(session->cursorLocation(), (Point{0, 0}));
}

TEST_F(LinuxMouseEventsTest, PressesTheLogicalLeftButtonOfALeftHandedUser) {
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

TEST_F(LinuxMouseEventsTest, MakesNothingWhereNoButtonIsTheLeftOne) {
    const auto mapping = user_.pointerMapping();
    auto withoutLeft = mapping;
    std::ranges::replace(withoutLeft, 1, 0);
    user_.setPointerMapping(withoutLeft);
    const auto session = mouseEvents_.openSession();
    EXPECT_EQ(session->createEventSource(), nullptr);

    user_.setPointerMapping(mapping);
    click(*session);
    expectLeftClick();
}

TEST_F(LinuxMouseEventsTest, WorksOnAThreadOfItsOwn) {
    std::thread([this] {
        const auto session = mouseEvents_.openSession();
        click(*session);
    }).join();
    expectLeftClick();
}

TEST(LinuxMouseEventsWithoutServerTest, EveryOperationFails) {
    const EnvironmentVariable display("DISPLAY", ":65000");
    const auto session = x11::LinuxMouseEvents().openSession();
    ASSERT_NE(session, nullptr);
    EXPECT_EQ(session->cursorLocation(), std::nullopt);
    EXPECT_EQ(session->createEventSource(), nullptr);
}

} // namespace

} // namespace corvane::contract
