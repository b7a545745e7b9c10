#include "Clicks.h"
#include "HotKeyPress.h"
#include "Measurement.h"
#include "Session.h"

namespace corvane::bench {

std::vector<Figure> measureHotKey(Extent extent) {
    const int presses = extent == Extent::quick ? 5 : 40;
    Session session;
    // The next click would come an hour later.
    const auto corvane = session.start({.clickRate = 1, .timeUnit = "h"});
    Samples times;
    for (int count = 1; count <= presses; ++count) {
        const double pressed = pressHotKey(session.keyboard());
        session.awaitClicks(count);
        times.add(session.newClicks().presses.front() - pressed);
        pressHotKey(session.keyboard());
        requireLog(*corvane, "Clicker stopped after 1 clicks", count);
    }
    return {Figure::of("hot key to first press", "ms", {.medianAtMost = 3}, times)};
}

} // namespace corvane::bench
