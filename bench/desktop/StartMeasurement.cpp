#include "Clicks.h"
#include "Measurement.h"
#include "Session.h"

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace corvane::bench {

namespace {

bool hasHotKey(const desktop::CorvaneProcess &corvane) {
    const auto &log = corvane.log();
    return std::ranges::any_of(
        log, [](const std::string &line) { return line.starts_with("Hotkey ("); });
}

/// Until the hot key is registered and the panel has the item, milliseconds.
double timeToStart(Session &session) {
    constexpr std::chrono::microseconds pause{200};
    const int items = session.panel().itemCount();
    const double begun = monotonicMilliseconds();
    desktop::CorvaneProcess corvane(session.desktop());
    while (!hasHotKey(corvane) || session.panel().itemCount() == items) {
        if (!corvane.process().isRunning()) {
            throw std::runtime_error("The program does not start:\n" + corvane.story());
        }
        std::this_thread::sleep_for(pause);
    }
    return monotonicMilliseconds() - begun;
}

} // namespace

std::vector<Figure> measureStart(Extent extent) {
    const int starts = extent == Extent::quick ? 5 : 30;
    Session session;
    timeToStart(session);
    Samples times;
    for (int count = 0; count < starts; ++count) {
        times.add(timeToStart(session));
    }
    return {Figure::of("start to hot key and tray ready, warm", "ms", {.medianAtMost = 60}, times)};
}

} // namespace corvane::bench
