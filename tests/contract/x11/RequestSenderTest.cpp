#include "platform/x11/connection/RequestSender.h"

#include "EventLoop.h"
#include "WaitUntil.h"
#include "XClient.h"
#include "platform/x11/connection/XcbEvents.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace corvane::contract {

namespace {

using namespace std::chrono_literals;
using platform::Instant;

class RequestSenderTest : public testing::Test {
  protected:
    RequestSenderTest() { sender().setNextClick(click_); }

    x11::RequestSender &sender() { return events_.sender(); }

    /// Leaves a request in the buffer, which another program sees when it has been sent.
    void leaveRequest() {
        xcb_change_property(events_.connection().get(), XCB_PROP_MODE_REPLACE,
                            events_.connection().root(), mark_, XCB_ATOM_CARDINAL, 32, 1,
                            &++number_);
    }

    bool hasArrived() const {
        const auto connection = user_.connection().get();
        const auto cookie = xcb_get_property(connection, 0, user_.connection().root(), mark_,
                                             XCB_ATOM_CARDINAL, 0, 1);
        const x11::XcbReply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(connection, cookie, nullptr));
        return reply && xcb_get_property_value_length(reply.get()) == sizeof number_ &&
               *static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get())) == number_;
    }

    /// Without running the event loop, which would send the rest.
    bool arrives() const {
        return desktop::waitUntil([this] { return hasArrived(); });
    }

    /// Leaves drawing in the buffer and calls `send` that long before a click.
    void drawBefore(std::chrono::nanoseconds distance) {
        leaveRequest();
        sender().markDrawing();
        *click_ = clock_.now() + distance;
        sender().send();
    }

    XClient user_;
    x11::XcbEvents events_{x11::XcbConnection::open().value(), [] {}};
    const std::shared_ptr<linux::NextClickDeadline> click_ =
        std::make_shared<linux::NextClickDeadline>();
    const linux::Clock clock_{};
    const xcb_atom_t mark_ = user_.connection().atom("_CORVANE_TEST_SENT");
    std::uint32_t number_ = 0;
};

TEST_F(RequestSenderTest, OnlyTheMomentsBeforeAClickAreNotClear) {
    *click_ = 1s;
    const Instant after = sender().deferPastClick(1s);
    EXPECT_GT(after, 1s);
    EXPECT_LT(after, 1s + 1ms);
    EXPECT_EQ(sender().deferPastClick(1s - 2ms), after);
    EXPECT_EQ(sender().deferPastClick(1s - 20ms), 1s - 20ms);
    EXPECT_EQ(sender().deferPastClick(after), after);
    EXPECT_EQ(sender().deferPastClick(2s), 2s);
}

TEST_F(RequestSenderTest, WhatIsNoDrawingIsSentAtOnce) {
    leaveRequest();
    *click_ = clock_.now() + 3ms;
    sender().send();
    EXPECT_TRUE(arrives());
}

TEST_F(RequestSenderTest, DrawingIsSentAtOnceWhileNoClickIsNear) {
    drawBefore(-1s);
    EXPECT_TRUE(arrives());
    drawBefore(1h);
    EXPECT_TRUE(arrives());
}

TEST_F(RequestSenderTest, DrawingWaitsUntilAClickThatIsNearIsSent) {
    EXPECT_TRUE(turnUntil([this] {
        // Again where the machine was too busy, and the click had passed before it was looked at.
        drawBefore(3ms);
        return !hasArrived();
    }));
    const Instant click = click_->load();
    EXPECT_TRUE(turnUntil([this] { return hasArrived(); }));
    EXPECT_GE(clock_.now(), click);
}

TEST_F(RequestSenderTest, DrawingDoesNotWaitForOneClickAfterTheOther) {
    drawBefore(3ms);
    EXPECT_TRUE(turnUntil([this] {
        *click_ = clock_.now() + 3ms;
        return hasArrived();
    }));
}

TEST_F(RequestSenderTest, WhatIsPreparedIsSentToo) {
    sender().beforeSending([this] { leaveRequest(); });
    sender().send();
    EXPECT_EQ(number_, 1U);
    EXPECT_TRUE(arrives());
    sender().beforeSending([] {});
}

} // namespace

} // namespace corvane::contract
