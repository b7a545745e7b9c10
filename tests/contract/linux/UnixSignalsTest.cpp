#include "platform/linux/UnixSignals.h"

#include "EventLoop.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>

#include <unistd.h>

namespace corvane::contract {

namespace {

TEST(UnixSignalsTest, EveryEndingSignalIsACallOfTheEventLoop) {
    int requests = 0;
    const linux::UnixSignals signals([&requests] { ++requests; });
    int expected = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        kill(getpid(), signal);
        ++expected;
        EXPECT_TRUE(turnUntil([&] { return requests == expected; })) << "signal " << signal;
    }
}

TEST(UnixSignalsTest, AFloodOfSignalsDoesNoHarm) {
    int requests = 0;
    const linux::UnixSignals signals([&requests] { ++requests; });
    constexpr int moreThanAPipeHolds = 100000;
    for (int count = 0; count < moreThanAPipeHolds; ++count) {
        raise(SIGTERM);
    }
    EXPECT_TRUE(turnUntil([&] { return requests > 0; }));
}

TEST(UnixSignalsTest, WritingToAClosedPipeIsAnOrdinaryError) {
    const linux::UnixSignals signals([] {});
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    EXPECT_EQ(write(ends[1], "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);
    close(ends[1]);
}

} // namespace

} // namespace corvane::contract
