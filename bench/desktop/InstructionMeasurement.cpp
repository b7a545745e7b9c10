#include "InstructionCounter.h"
#include "Measurement.h"
#include "TrackedRun.h"

#include <algorithm>
#include <string_view>
#include <thread>
#include <utility>

namespace corvane::bench {

namespace {

constexpr double thousand = 1e3;
constexpr double million = 1e6;
constexpr std::string_view passLine = "WindowResolver: resolved";

Figure figureOf(std::string name, std::string unit, double atMost, double value) {
    Samples samples;
    samples.add(value);
    return Figure::of(std::move(name), std::move(unit), {.medianAtMost = atMost}, samples);
}

/// The start, and a click of a run with zone, ripples and menu.
std::vector<Figure> countStartAndClicks(int clicks) {
    constexpr int firstClicks = 25;
    Session session;
    InstructionCounter counter(session.desktop());
    const auto corvane = session.start(
        {.clickMode = "zone", .clickRate = 50, .zone = Session::zone}, counter.launcher());
    const pid_t process = corvane->process().pid();
    const double start = counter.take(process).allThreads;
    session.keyboard().pressHotKey();
    // Ripples are painted once and kept.
    session.awaitClicks(firstClicks);
    counter.take(process);
    const int before = session.client().pressCount();
    session.awaitClicks(before + clicks);
    const auto counts = counter.take(process);
    const int counted = session.client().pressCount() - before;
    return {
        figureOf("start to hot key and tray ready", "million instructions", 45, start / million),
        figureOf("a click, everything on, main thread", "thousand instructions", 60,
                 counts.mainThread / counted / thousand)};
}

int passCount(const desktop::CorvaneProcess &corvane) {
    return static_cast<int>(std::ranges::count_if(
        corvane.log(), [](const std::string &line) { return line.starts_with(passLine); }));
}

Figure countPasses(std::chrono::seconds time) {
    TrackedRun run;
    InstructionCounter counter(run.session().desktop());
    run.start(counter.launcher());
    constexpr int firstPasses = 25;
    requireLog(run.corvane(), passLine, firstPasses);
    counter.take(run.process());
    const int before = passCount(run.corvane());
    std::this_thread::sleep_for(time);
    const double instructions = counter.take(run.process()).mainThread;
    const int passes = passCount(run.corvane()) - before;
    return figureOf("a pass over a still window", "thousand instructions", 25,
                    instructions / passes / thousand);
}

} // namespace

std::vector<Figure> measureInstructions(Extent extent) {
    const bool isQuick = extent == Extent::quick;
    std::vector<Figure> figures = countStartAndClicks(isQuick ? 50 : 200);
    figures.push_back(countPasses(std::chrono::seconds(isQuick ? 2 : 5)));
    return figures;
}

} // namespace corvane::bench
