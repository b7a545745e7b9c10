#include "BareClicks.h"
#include "Measurement.h"
#include "ProcessUsage.h"
#include "Session.h"
#include "platform/linux/timing/Clock.h"
#include "platform/x11/click/MouseEvents.h"
#include "platform/x11/connection/XcbConnection.h"
#include "services/ClickerService.h"
#include "support/Log.h"

#include <cstdint>
#include <future>
#include <memory>

namespace corvane::bench {

namespace {

constexpr int ordinaryRate = 50;
constexpr int highestRate = 9999;

struct EngineSamples {
    /// Processor time of the clicking thread from each click to the next.
    Samples costs;
    /// From press to press as the other program saw them, beyond the time that was asked for.
    Samples overheads;
    Samples holds;
};

double p99LessMedian(const Samples &samples) { return samples.percentile(99) - samples.median(); }

/// The engine without anything that shows it.
class EngineAlone {
  public:
    explicit EngineAlone(Session &session) : session_(session) {}

    void click(int clickRate, int clickCount, EngineSamples &samples) {
        const int before = session_.client().pressCount();
        std::promise<void> finished;
        double last = 0;
        ClickerService engine(mouseEvents_, clock_);
        engine.start(
            {.clickRate = clickRate, .maxClicks = clickCount}, nullptr,
            [&](std::int64_t count, Point) {
                const double now = threadMilliseconds();
                if (count > 1) {
                    samples.costs.add(now - last);
                }
                last = now;
            },
            [&finished] { finished.set_value(); });
        finished.get_future().wait();
        session_.awaitClicks(before + clickCount);
        const Clicks clicks = session_.newClicks();
        samples.overheads.add(clicks.periodsBeyond(millisecondsPerSecond / clickRate + holdTime));
        samples.holds.add(clicks.holds());
    }

  private:
    Session &session_;
    const std::unique_ptr<x11::XcbConnection> server_ = x11::XcbConnection::open().value();
    x11::MouseEvents mouseEvents_{*server_};
    linux::Clock clock_;
};

void addBareClicks(Session &session, int clickCount, EngineSamples &samples) {
    const int before = session.client().pressCount();
    samples.costs.add(clickBarely(clickCount));
    session.awaitClicks(before + clickCount);
    samples.overheads.add(session.newClicks().periodsBeyond(barePeriod));
}

Figure lateness(const std::string &subject, const Target &target, const Samples &overheads) {
    Samples late;
    late.add(p99LessMedian(overheads));
    return Figure::of("period, 99th percentile less median, " + subject, "ms", target, late);
}

} // namespace

/// Engine and bare loop take turns, so that a change of the machine's speed concerns both.
std::vector<Figure> measureEngine(Extent extent) {
    constexpr int rounds = 3;
    const int clickCount = extent == Extent::quick ? 20 : 100;
    Session session;
    session.desktop().adoptEnvironment();
    useLogSink([](std::string_view) {});
    EngineAlone engine(session);
    EngineSamples ordinary;
    EngineSamples fast;
    EngineSamples bare;
    for (int round = 0; round < rounds; ++round) {
        engine.click(ordinaryRate, clickCount, ordinary);
        addBareClicks(session, clickCount, bare);
    }
    engine.click(highestRate, rounds * clickCount, fast);
    useLogSink({});
    Figure cost = Figure::of("processor time a click, engine alone", "ms", {.ratioAtMost = 1.5},
                             ordinary.costs);
    cost.setFloor({"bare click", bare.costs.median()});
    Figure late = lateness("engine alone", {.ratioAtMost = 1.3}, ordinary.overheads);
    late.reference = {"bare click", p99LessMedian(bare.overheads)};
    return {cost,
            Figure::of("period beyond interval and hold, 50 clicks/s, engine alone", "ms", {},
                       ordinary.overheads),
            Figure::of("period beyond interval and hold, 9999 clicks/s, engine alone", "ms", {},
                       fast.overheads),
            late,
            Figure::of("press to release, engine alone", "ms", {}, ordinary.holds),
            Figure::of("processor time a click, bare click", "ms", {}, bare.costs),
            Figure::of("period beyond interval and hold, bare click", "ms", {}, bare.overheads)};
}

} // namespace corvane::bench
