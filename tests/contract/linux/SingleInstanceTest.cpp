#include "platform/linux/SingleInstance.h"

#include "EventLoop.h"

#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

/// A start of the program, with a connection of its own.
class Start {
  public:
    bool isOnlyOne() const { return instance_ != nullptr; }
    int startsAfter() const { return startsAfter_; }
    const x11::XcbEvents &events() const { return events_; }

  private:
    x11::XcbEvents events_{x11::XcbConnection::open().value(), [] {}};
    int startsAfter_ = 0;
    std::unique_ptr<x11::SingleInstance> instance_ =
        x11::SingleInstance::claim(events_, [this] { ++startsAfter_; });
};

TEST(SingleInstanceTest, TheFirstStartIsTheOnlyOne) {
    const Start first;
    EXPECT_TRUE(first.isOnlyOne());
}

TEST(SingleInstanceTest, ALaterStartIsRefusedAndTheFirstHearsOfIt) {
    const Start first;
    const Start second;
    EXPECT_FALSE(second.isOnlyOne());
    ASSERT_TRUE(turnUntil([&first] { return first.startsAfter() == 1; }));
    const Start third;
    EXPECT_FALSE(third.isOnlyOne());
    EXPECT_TRUE(turnUntil([&first] { return first.startsAfter() == 2; }));
    EXPECT_EQ(second.startsAfter(), 0);
}

TEST(SingleInstanceTest, TheEndOfTheFirstMakesRoom) {
    {
        const Start first;
    }
    const Start second;
    EXPECT_TRUE(second.isOnlyOne());
    EXPECT_EQ(second.startsAfter(), 0);
}

} // namespace

} // namespace corvane::contract
