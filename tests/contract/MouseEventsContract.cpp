#include "BackEnd.h"
#include "platform/MouseEvents.h"
#include "platform/Platform.h"

#include <thread>

namespace corvane::contract {

namespace {

using platform::MouseEventType;

class MouseEventsContract : public ContractTest {};

TEST_P(MouseEventsContract, ASessionKnowsTheCursorAndMakesEvents) {
    const auto session = platform().mouseEvents().openSession();
    ASSERT_NE(session, nullptr);
    const auto cursor = session->readyPosition();
    ASSERT_TRUE(cursor.has_value());
    const auto source = session->createEventSource();
    ASSERT_NE(source, nullptr);
    const auto down = source->createMouseEvent(MouseEventType::leftMouseDown, *cursor);
    const auto up = source->createMouseEvent(MouseEventType::leftMouseUp, *cursor);
    ASSERT_NE(down, nullptr);
    ASSERT_NE(up, nullptr);
    down->setClickState(1);
    up->setClickState(1);
    down->post();
    EXPECT_EQ(session->readyPosition(), cursor);
    up->post();
    EXPECT_EQ(session->readyPosition(), cursor);
}

TEST_P(MouseEventsContract, EventsThatAreNotPostedLeaveTheSessionReady) {
    const auto session = platform().mouseEvents().openSession();
    const auto cursor = session->readyPosition();
    ASSERT_TRUE(cursor.has_value());
    session->createEventSource()->createMouseEvent(MouseEventType::leftMouseDown, *cursor);
    EXPECT_EQ(session->readyPosition(), cursor);
}

TEST_P(MouseEventsContract, ClicksFollowEachOtherWhetherOrNotReadinessIsAsked) {
    const auto session = platform().mouseEvents().openSession();
    const auto source = session->createEventSource();
    for (int count = 0; count < 3; ++count) {
        source->createMouseEvent(MouseEventType::leftMouseDown, {})->post();
        source->createMouseEvent(MouseEventType::leftMouseUp, {})->post();
    }
    EXPECT_TRUE(session->readyPosition().has_value());
}

TEST_P(MouseEventsContract, SessionsOfDifferentThreadsDoNotDisturbEachOther) {
    const auto click = [this] {
        const auto session = platform().mouseEvents().openSession();
        for (int count = 0; count < 50; ++count) {
            const auto source = session->createEventSource();
            source->createMouseEvent(MouseEventType::leftMouseDown, {})->post();
            source->createMouseEvent(MouseEventType::leftMouseUp, {})->post();
        }
    };
    std::thread one(click);
    std::thread other(click);
    one.join();
    other.join();
    EXPECT_TRUE(platform().mouseEvents().openSession()->readyPosition().has_value());
}

CORVANE_WINDOW_CONTRACT(MouseEventsContract);

} // namespace

} // namespace corvane::contract
