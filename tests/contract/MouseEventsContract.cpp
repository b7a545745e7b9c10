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
    const auto cursor = session->state().cursorLocation;
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
    EXPECT_TRUE(down->hasTakenEffect());
    up->post();
    EXPECT_TRUE(up->hasTakenEffect());
    EXPECT_NE(session->state().isLeftButtonDown, true);
    EXPECT_EQ(session->state().cursorLocation, cursor);
}

TEST_P(MouseEventsContract, SessionsOfDifferentThreadsDoNotDisturbEachOther) {
    const auto click = [this] {
        const auto session = platform().mouseEvents().openSession();
        for (int count = 0; count < 50; ++count) {
            const auto source = session->createEventSource();
            const auto cursor = session->state().cursorLocation;
            ASSERT_NE(source, nullptr);
            ASSERT_TRUE(cursor.has_value());
            source->createMouseEvent(MouseEventType::leftMouseDown, *cursor)->post();
            source->createMouseEvent(MouseEventType::leftMouseUp, *cursor)->post();
        }
    };
    std::thread one(click);
    std::thread other(click);
    one.join();
    other.join();
}

CORVANE_CONTRACT(MouseEventsContract);

} // namespace

} // namespace corvane::contract
