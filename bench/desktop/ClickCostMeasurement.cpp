#include "BareClicks.h"
#include "BareThread.h"
#include "Measurement.h"
#include "ProcessUsage.h"
#include "Session.h"

#include <string>

namespace corvane::bench {

namespace {

double processorMilliseconds(pid_t process) {
    return std::chrono::duration<double, std::milli>(ProcessUsage::of(process).processorTime)
        .count();
}

constexpr int stretch = 25;

/// Of the whole program with zone, ripples and menu, over every `stretch` clicks in turn.
Samples costsOfClicks(Session &session, int stretches) {
    const auto corvane =
        session.start({.clickMode = "zone", .clickRate = 50, .zone = Session::zone});
    const pid_t process = corvane->process().pid();
    session.keyboard().pressHotKey();
    // Ripples are painted once and kept.
    session.awaitClicks(session.client().pressCount() + stretch);
    Samples costs;
    int clicks = session.client().pressCount();
    double time = processorMilliseconds(process);
    for (int count = 0; count < stretches; ++count) {
        session.awaitClicks(clicks + stretch);
        const int clicksNow = session.client().pressCount();
        const double timeNow = processorMilliseconds(process);
        costs.add((timeNow - time) / (clicksNow - clicks));
        clicks = clicksNow;
        time = timeNow;
    }
    return costs;
}

Figure clickCost(Extent extent, bool hasCompositor) {
    const int stretches = extent == Extent::quick ? 4 : 20;
    Session session({.hasCompositor = hasCompositor});
    Figure figure = Figure::of(std::string("processor time a click, everything on, compositor ") +
                                   (hasCompositor ? "on" : "off"),
                               "ms", {.ratioAtMost = 3}, costsOfClicks(session, stretches));
    session.desktop().adoptEnvironment();
    figure.setFloor({"bare click", clickBarely(stretches * stretch).median()});
    return figure;
}

} // namespace

std::vector<Figure> measureClickCost(Extent extent) {
    constexpr std::chrono::milliseconds pause{4};
    const int turns = extent == Extent::quick ? 250 : 1500;
    return {clickCost(extent, false), clickCost(extent, true),
            Figure::of("processor time a wake-up, bare loop", "ms", {},
                       costsOfTurns(pause, turns, [] {}))};
}

} // namespace corvane::bench
