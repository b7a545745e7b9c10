#include "Clicks.h"
#include "Measurement.h"
#include "Session.h"

#include <optional>
#include <string>

namespace corvane::bench {

namespace {

/// A rate, and how often it is tried.
struct RateTrial {
    int rate;
    int rounds;
    int clicksPerRound;
    bool hasReference;

    double interval() const { return millisecondsPerSecond / rate; }
    std::chrono::milliseconds roundTime() const {
        return std::chrono::milliseconds(
            static_cast<int>((interval() + holdTime) * (clicksPerRound - 1)));
    }
};

/// What goes beyond the time between clicks that was asked for.
struct Overheads {
    Samples corvane;
    Samples holds;
    Samples xdotool;
};

void clickWithCorvane(Session &session, const RateTrial &trial, Overheads &overheads) {
    const auto corvane =
        session.start({.clickRate = trial.rate, .maxClicks = trial.clicksPerRound});
    session.keyboard().pressHotKey();
    awaitFinish(*corvane, trial.roundTime());
    session.client().waitForClicks(trial.clicksPerRound);
    const Clicks clicks = session.newClicks();
    overheads.corvane.add(clicks.periodsBeyond(trial.interval() + holdTime));
    overheads.holds.add(clicks.holds());
}

/// It releases the button at once, so nothing but the delay is asked of it.
void clickWithXdotool(Session &session, const RateTrial &trial, Overheads &overheads) {
    const int delay = static_cast<int>(trial.interval());
    session.desktop().run({"xdotool", "click", "--repeat", std::to_string(trial.clicksPerRound),
                           "--delay", std::to_string(delay), "1"});
    overheads.xdotool.add(session.newClicks().periodsBeyond(delay));
}

} // namespace

std::vector<Figure> measurePeriod(Extent extent) {
    const bool isQuick = extent == Extent::quick;
    const std::array trials{RateTrial{1, 1, isQuick ? 4 : 25, false},
                            RateTrial{10, isQuick ? 1 : 3, isQuick ? 20 : 50, true},
                            RateTrial{50, isQuick ? 1 : 4, isQuick ? 50 : 150, true}};
    Session session;
    Samples holds;
    std::vector<Figure> figures;
    for (const RateTrial &trial : trials) {
        Overheads overheads;
        for (int round = 0; round < trial.rounds; ++round) {
            clickWithCorvane(session, trial, overheads);
            if (trial.hasReference) {
                clickWithXdotool(session, trial, overheads);
            }
        }
        Target target;
        if (trial.hasReference) {
            target.ratioAtMost = 0.25;
        }
        Figure figure = Figure::of("period beyond interval and hold, " +
                                       std::to_string(trial.rate) + " clicks/s",
                                   "ms", target, overheads.corvane);
        if (trial.hasReference) {
            figure.reference = {"xdotool", overheads.xdotool.median()};
        }
        figures.push_back(figure);
        holds.add(overheads.holds);
    }
    figures.push_back(Figure::of("press to release", "ms", {}, holds));
    return figures;
}

} // namespace corvane::bench
