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

Figure startFigure(const InstructionCounter::Counts &counts) {
    const CallProfile &profile = counts.mainThread;
    Figure figure = figureOf("start to hot key and tray ready", "million instructions", 45,
                             counts.allThreads / million);
    for (const auto &[name, function] :
         {std::pair("linking the libraries", "_dl_start"),
          std::pair("Qt's start, with its plugins", "QApplication::QApplication"),
          std::pair("painting the status icon", "corvane::linux::StatusItem::paintIcon")}) {
        figure.parts.push_back({name, profile.of(function) / million});
    }
    return figure;
}

Figure clickFigure(const CallProfile &profile, int clicks) {
    const auto each = [&](std::string_view function) {
        return profile.of(function) / clicks / thousand;
    };
    const double refresh = each("corvane::StatusBarController::rebuildMenu");
    const double show = each("corvane::linux::StatusItem::setMenu");
    const double send = each("corvane::freedesktop::DBusMenuExporter::send");
    Figure figure = figureOf("a click, everything on, main thread", "thousand instructions", 60,
                             profile.total() / clicks / thousand);
    figure.parts = {
        {"building the menu as a value", refresh - show},
        {"comparing it with what the panel has", show - send},
        {"sending the changed line to the panel", send},
        {"showing the ripple", each("corvane::Ripples::show")},
        {"the frames of its animation", each("corvane::drawing::OverlayAnimator::advance")}};
    return figure;
}

/// The start, and a click of a run with zone, ripples and menu.
std::vector<Figure> countStartAndClicks(int clicks) {
    constexpr int firstClicks = 25;
    Session session;
    InstructionCounter counter(session.desktop());
    const auto corvane = session.start(
        {.clickMode = "zone", .clickRate = 50, .zone = Session::zone}, counter.launcher());
    const pid_t process = corvane->process().pid();
    const auto start = counter.take(process);
    session.keyboard().pressHotKey();
    // Ripples are painted once and kept.
    session.awaitClicks(firstClicks);
    counter.take(process);
    const int before = session.client().pressCount();
    session.awaitClicks(before + clicks);
    const auto counts = counter.take(process);
    return {startFigure(start),
            clickFigure(counts.mainThread, session.client().pressCount() - before)};
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
    const CallProfile profile = counter.take(run.process()).mainThread;
    const int passes = passCount(run.corvane()) - before;
    Figure figure = figureOf("a pass over a still window", "thousand instructions", 25,
                             profile.total() / passes / thousand);
    for (const auto &[name, function] :
         {std::pair("finding the window", "corvane::WindowResolver::find"),
          std::pair("writing the log line", "corvane::WindowResolver::logResolution")}) {
        figure.parts.push_back({name, profile.of(function) / passes / thousand});
    }
    return figure;
}

} // namespace

std::vector<Figure> measureInstructions(Extent extent) {
    const bool isQuick = extent == Extent::quick;
    std::vector<Figure> figures = countStartAndClicks(isQuick ? 50 : 200);
    figures.push_back(countPasses(std::chrono::seconds(isQuick ? 2 : 5)));
    return figures;
}

} // namespace corvane::bench
