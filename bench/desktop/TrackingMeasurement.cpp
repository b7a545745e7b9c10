#include "BareThread.h"
#include "Measurement.h"
#include "MovingWindow.h"
#include "ProcessUsage.h"
#include "TrackedRun.h"
#include "support/Log.h"

#include <thread>

namespace corvane::bench {

namespace {

/// The share of a core in percent, second by second, while `work` is done again and again.
template <typename Work>
Samples coreShares(pid_t process, int seconds, Work workFor) {
    constexpr std::chrono::seconds stretch{1};
    Samples shares;
    for (int count = 0; count < seconds; ++count) {
        const auto before = ProcessUsage::of(process).processorTime;
        const auto begun = std::chrono::steady_clock::now();
        workFor(stretch);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begun;
        const std::chrono::duration<double> used = ProcessUsage::of(process).processorTime - before;
        shares.add(100 * used / time);
    }
    return shares;
}

/// What it takes to be woken for each pass and to write its line, and nothing else.
Samples bareCoreShares(const std::filesystem::path &logFile, int seconds) {
    constexpr std::chrono::milliseconds pause{16};
    constexpr int passesPerSecond = 60;
    const Samples costs = costsOfTurns(pause, seconds * passesPerSecond, [&logFile] {
        appendLogLine(logFile.c_str(), "WindowResolver: resolved to (80.0, 140.0, 120.0, 90.0) "
                                       "(window at (40.0, 100.0, 400.0, 300.0))");
    });
    return costs.scaledBy(100.0 / pause.count());
}

} // namespace

std::vector<Figure> measureTracking(Extent extent) {
    const int seconds = extent == Extent::quick ? 3 : 15;
    TrackedRun run;
    run.start();
    const Samples bare = bareCoreShares(run.session().desktop().folder() / "bare.log", seconds);
    const Samples still = coreShares(run.process(), seconds, [](std::chrono::seconds stretch) {
        std::this_thread::sleep_for(stretch);
    });
    MovingWindow window(run.session().desktop(), run.window(), TrackedRun::relativeZone);
    const Samples moving =
        coreShares(run.process(), seconds, [&window](auto stretch) { window.moveFor(stretch); });
    Figure stillFigure = Figure::of("anchor tracking, 40 windows, window still", "% of a core",
                                    {.ratioAtMost = 1.5}, still);
    stillFigure.setFloor({"bare pass", bare.median()});
    return {
        stillFigure,
        Figure::of("anchor tracking, 40 windows, window moving", "% of a core", {.medianAtMost = 2},
                   moving),
        Figure::of("a bare pass: wake-up and log line", "% of a core", {}, bare),
        Figure::of("zone lag behind the moving window", "ms", {.p99AtMost = 17}, window.lags())};
}

} // namespace corvane::bench
