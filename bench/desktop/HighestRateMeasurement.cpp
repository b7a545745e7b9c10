#include "Clicks.h"
#include "Measurement.h"
#include "ProcessUsage.h"
#include "Session.h"

#include <cstddef>

namespace corvane::bench {

namespace {

/// Clicks a second, over every hundred clicks in turn.
Samples ratesOf(const Clicks &clicks) {
    constexpr std::size_t stretch = 100;
    Samples rates;
    for (std::size_t end = stretch; end < clicks.presses.size(); end += stretch) {
        const double time = clicks.presses[end] - clicks.presses[end - stretch];
        rates.add(stretch * millisecondsPerSecond / time);
    }
    return rates;
}

} // namespace

/// The memory is looked at in the same run, after every ripple has been painted once and at its
/// end.
std::vector<Figure> measureHighestRate(Extent extent) {
    constexpr std::chrono::seconds warmUp{5};
    constexpr int mostClicksPerSecond = 99;
    const int clickCount = extent == Extent::quick ? 1000 : 10'000;
    const std::chrono::seconds leastTime(clickCount / mostClicksPerSecond);
    Session session;
    const auto corvane = session.start({.clickRate = 9999, .maxClicks = clickCount});
    const pid_t process = corvane->process().pid();
    Samples idle;
    idle.add(privateMegabytes(process));

    session.keyboard().pressHotKey();
    std::this_thread::sleep_for(warmUp);
    const double before = writtenMegabytes(process);
    awaitFinish(*corvane, leastTime - warmUp);
    session.client().waitForClicks(clickCount);
    Samples growth;
    growth.add(writtenMegabytes(process) - before);

    return {Figure::of("highest rate, 9999 clicks/s set", "clicks/s", {.medianAtLeast = 97.8},
                       ratesOf(session.newClicks())),
            Figure::of("private memory, idle", "MB", {.medianAtMost = 10.6}, idle),
            Figure::of("memory growth over " + std::to_string(clickCount) + " clicks", "MB",
                       {.medianAtMost = 0}, growth)};
}

} // namespace corvane::bench
