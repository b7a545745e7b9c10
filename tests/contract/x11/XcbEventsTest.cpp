#include "platform/x11/connection/XcbEvents.h"

#include "EventLoop.h"
#include "XClient.h"

#include <gtest/gtest.h>

#include <sys/socket.h>

namespace corvane::contract {

namespace {

class XcbEventsTest : public testing::Test {
  protected:
    /// Makes the server send every client an event.
    void causeEvent() { user_.setPointerMapping(user_.pointerMapping()); }

    x11::XcbEvents::Subscription counter(int &events) {
        return events_.subscribe([&events](const xcb_generic_event_t &event) {
            events += event.response_type == XCB_MAPPING_NOTIFY ? 1 : 0;
        });
    }

    XClient user_;
    int losses_ = 0;
    x11::XcbEvents events_{x11::XcbConnection::open().value(), [this] { ++losses_; }};
};

TEST_F(XcbEventsTest, EverySubscriberHearsEveryEvent) {
    int first = 0;
    int second = 0;
    const auto one = counter(first);
    const auto other = counter(second);
    causeEvent();
    EXPECT_TRUE(turnUntil([&] { return first == 1 && second == 1; }));
}

TEST_F(XcbEventsTest, AnEventReadWhileWaitingForAReplyIsDelivered) {
    int events = 0;
    const auto subscription = counter(events);
    causeEvent();
    events_.connection().synchronise();
    EXPECT_TRUE(turnUntil([&events] { return events == 1; }));
}

TEST_F(XcbEventsTest, AGivenUpSubscriptionHearsNothingMore) {
    int events = 0;
    auto subscription = counter(events);
    int others = 0;
    const auto other = counter(others);
    subscription.reset();
    causeEvent();
    EXPECT_TRUE(turnUntil([&others] { return others == 1; }));
    EXPECT_EQ(events, 0);
}

TEST_F(XcbEventsTest, AHandlerMayGiveUpItsOwnSubscription) {
    int events = 0;
    x11::XcbEvents::Subscription subscription;
    subscription = events_.subscribe([&](const xcb_generic_event_t &) {
        ++events;
        subscription.reset();
    });
    causeEvent();
    causeEvent();
    settle(events_);
    EXPECT_EQ(events, 1);
}

TEST_F(XcbEventsTest, ErrorsAreNotEvents) {
    int deliveries = 0;
    const auto subscription =
        events_.subscribe([&deliveries](const xcb_generic_event_t &) { ++deliveries; });
    xcb_destroy_window(events_.connection().get(), XCB_NONE);
    settle(events_);
    EXPECT_EQ(deliveries, 0);
}

TEST_F(XcbEventsTest, RequestsLeaveBeforeTheLoopSleeps) {
    int events = 0;
    const auto subscription = counter(events);
    const auto mapping = user_.pointerMapping();
    const auto cookie = xcb_set_pointer_mapping(
        events_.connection().get(), static_cast<std::uint8_t>(mapping.size()), mapping.data());
    xcb_discard_reply(events_.connection().get(), cookie.sequence);
    EXPECT_TRUE(turnUntil([&events] { return events == 1; }));
}

TEST_F(XcbEventsTest, TellsOnceThatTheServerIsGone) {
    shutdown(events_.connection().fileDescriptor(), SHUT_RDWR);
    EXPECT_TRUE(turnUntil([this] { return losses_ > 0; }));
    turnUntil([turns = 0]() mutable { return ++turns > 3; });
    EXPECT_EQ(losses_, 1);
}

} // namespace

} // namespace corvane::contract
