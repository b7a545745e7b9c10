#include "Measurement.h"
#include "Session.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxMouseEvents.h"
#include "services/ClickerService.h"
#include "support/Log.h"

#include <cstdint>
#include <ctime>
#include <future>

namespace corvane::bench {

namespace {

double threadMilliseconds() {
    constexpr double nanosecondsPerMillisecond = 1e6;
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * millisecondsPerSecond +
           static_cast<double>(time.tv_nsec) / nanosecondsPerMillisecond;
}

/// Processor time of the engine's thread from each click to the next.
Samples costsOfClicks(int clickCount) {
    x11::LinuxMouseEvents mouseEvents;
    x11::LinuxClock clock;
    Samples costs;
    std::promise<void> finished;
    double last = 0;
    ClickerService engine(mouseEvents, clock);
    engine.start(
        {.clickRate = 50, .maxClicks = clickCount}, nullptr,
        [&](std::int64_t count, Point) {
            const double now = threadMilliseconds();
            if (count > 1) {
                costs.add(now - last);
            }
            last = now;
        },
        [&finished] { finished.set_value(); });
    finished.get_future().wait();
    return costs;
}

} // namespace

std::vector<Figure> measureEngine(Extent extent) {
    Session session;
    session.desktop().adoptEnvironment();
    useLogSink([](std::string_view) {});
    const Samples costs = costsOfClicks(extent == Extent::quick ? 50 : 300);
    useLogSink({});
    return {
        Figure::of("processor time a click, engine alone", "ms", {.medianAtMost = 0.15}, costs)};
}

} // namespace corvane::bench
