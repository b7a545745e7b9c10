#include "Measurement.h"
#include "ProcessUsage.h"
#include "Session.h"
#include "platform/linux/timing/Clock.h"
#include "platform/x11/click/MouseEvents.h"
#include "platform/x11/connection/XcbConnection.h"
#include "services/ClickerService.h"
#include "support/Log.h"

#include <xcb/xtest.h>

#include <chrono>
#include <cstdint>
#include <future>
#include <thread>

#include <sys/prctl.h>

namespace corvane::bench {

namespace {

constexpr int ordinaryRate = 50;
constexpr int highestRate = 9999;

/// A run of the engine without anything that shows it.
struct EngineRun {
    /// Processor time of the engine's thread from each click to the next.
    Samples costs;
    /// What the other program got.
    Clicks clicks;
};

EngineRun runEngine(Session &session, int clickRate, int clickCount) {
    const auto server = x11::XcbConnection::open().value();
    x11::MouseEvents mouseEvents(*server);
    linux::Clock clock;
    Samples costs;
    std::promise<void> finished;
    double last = 0;
    ClickerService engine(mouseEvents, clock);
    engine.start(
        {.clickRate = clickRate, .maxClicks = clickCount}, nullptr,
        [&](std::int64_t count, Point) {
            const double now = threadMilliseconds();
            if (count > 1) {
                costs.add(now - last);
            }
            last = now;
        },
        [&finished] { finished.set_value(); });
    finished.get_future().wait();
    session.client().waitForClicks(clickCount);
    return {costs, session.newClicks()};
}

/// What goes beyond the interval that was asked for and the hold.
Samples overheadsOf(const Clicks &clicks, int clickRate) {
    return clicks.periodsBeyond(millisecondsPerSecond / clickRate + holdTime);
}

struct BareClicks {
    /// Processor time of the thread.
    Samples costs;
    /// From click to click, beyond the two sleeps.
    Samples overheads;
};

/// The least that anything can do for a click: read the pointer, press, sleep, release, sleep. It
/// neither wakes early nor waits awake, so what it takes is the machine's.
BareClicks clickBarely(int clickCount) {
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;
    constexpr std::chrono::milliseconds hold(10);
    constexpr std::chrono::milliseconds interval(20);
    constexpr std::uint8_t leftButton = 1;
    const auto connection = x11::XcbConnection::open().value();
    const auto send = [&connection](std::uint8_t type) {
        xcb_test_fake_input(connection->get(), type, leftButton, XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                            0);
        connection->flush();
    };
    BareClicks clicks;
    std::thread([&] {
        prctl(PR_SET_TIMERSLACK, 1);
        for (int click = 0; click < clickCount; ++click) {
            const auto start = Clock::now();
            const double costBefore = threadMilliseconds();
            x11::reply<xcb_query_pointer_reply>(
                connection->get(), xcb_query_pointer(connection->get(), connection->root()));
            send(XCB_BUTTON_PRESS);
            std::this_thread::sleep_for(hold);
            send(XCB_BUTTON_RELEASE);
            std::this_thread::sleep_for(interval);
            clicks.costs.add(threadMilliseconds() - costBefore);
            clicks.overheads.add(Milliseconds(Clock::now() - start - hold - interval).count());
        }
    }).join();
    return clicks;
}

} // namespace

std::vector<Figure> measureEngine(Extent extent) {
    const int clickCount = extent == Extent::quick ? 50 : 300;
    Session session;
    session.desktop().adoptEnvironment();
    useLogSink([](std::string_view) {});
    const EngineRun ordinary = runEngine(session, ordinaryRate, clickCount);
    const EngineRun fast = runEngine(session, highestRate, clickCount);
    useLogSink({});
    const BareClicks bare = clickBarely(clickCount);
    return {Figure::of("processor time a click, engine alone", "ms", {.medianAtMost = 0.15},
                       ordinary.costs),
            Figure::of("period beyond interval and hold, 50 clicks/s, engine alone", "ms", {},
                       overheadsOf(ordinary.clicks, ordinaryRate)),
            Figure::of("period beyond interval and hold, 9999 clicks/s, engine alone", "ms", {},
                       overheadsOf(fast.clicks, highestRate)),
            Figure::of("press to release, engine alone", "ms", {}, ordinary.clicks.holds()),
            Figure::of("processor time a click, bare loop", "ms", {}, bare.costs),
            Figure::of("period beyond interval and hold, bare loop", "ms", {}, bare.overheads)};
}

} // namespace corvane::bench
