#include "Clicks.h"
#include "HotKeyPress.h"
#include "Measurement.h"
#include "Session.h"

#include <algorithm>
#include <random>
#include <thread>

namespace corvane::bench {

namespace {

constexpr double hold = 10;

/// How long events still came when nothing asked for them any more: after the stop, or after the
/// end of the hold if the stop fell into one.
double lateness(const Clicks &clicks, double stopped) {
    const double due =
        clicks.presses.back() < stopped ? std::max(stopped, clicks.presses.back() + hold) : stopped;
    return std::max(0.0, clicks.releases.back() - due);
}

/// The longest time a press came after the stop.
double pressLateness(const Clicks &clicks, double stopped) {
    return std::max(0.0, clicks.presses.back() - stopped);
}

} // namespace

std::vector<Figure> measureStop(Extent extent) {
    const int stops = extent == Extent::quick ? 10 : 60;
    Session session;
    const auto corvane = session.start({.clickRate = 50});
    std::minstd_rand random(1); // NOLINT(cert-msc51-cpp): the same stops every time
    std::uniform_int_distribution<int> microseconds(0, 30'000);
    Samples presses;
    Samples events;
    for (int count = 1; count <= stops; ++count) {
        const int before = session.client().pressCount();
        pressHotKey(session.keyboard());
        session.awaitClicks(before + 2);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        const double stopped = pressHotKey(session.keyboard());
        requireLog(*corvane, "Clicker stopped after ", count);
        const Clicks clicks = session.newClicks();
        presses.add(pressLateness(clicks, stopped));
        events.add(lateness(clicks, stopped));
    }
    return {Figure::of("stop key to last press", "ms", {.p99AtMost = 2}, presses),
            Figure::of("stop key, or end of the hold it fell into, to last event", "ms",
                       {.medianAtMost = 2}, events)};
}

} // namespace corvane::bench
