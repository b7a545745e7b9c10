#include "BusListener.h"
#include "Measurement.h"
#include "ProcessUsage.h"
#include "Session.h"

#include <thread>

namespace corvane::bench {

/// The check of the permission every 3 s builds the menu anew, which must not be sent again.
std::vector<Figure> measureIdle(Extent extent) {
    // Two seconds after the launch the program looks whether a panel shows its item.
    constexpr std::chrono::seconds launch(3);
    const std::chrono::seconds time(extent == Extent::quick ? 9 : 60);
    Session session;
    const auto corvane = session.start({});
    std::this_thread::sleep_for(launch);
    const BusListener listener(session.desktop(), "com.canonical.dbusmenu");
    const ProcessUsage before = ProcessUsage::of(corvane->process().pid());
    std::this_thread::sleep_for(time);
    const ProcessUsage after = ProcessUsage::of(corvane->process().pid());
    Samples wakeUps;
    wakeUps.add(static_cast<double>(after.wakeUps - before.wakeUps));
    Samples processorTime;
    processorTime.add(
        std::chrono::duration<double, std::milli>(after.processorTime - before.processorTime)
            .count());
    Samples messages;
    messages.add(listener.signalCount());
    const std::string span = std::to_string(time.count()) + " s";
    const auto checks = static_cast<double>(time / std::chrono::seconds(3));
    return {
        Figure::of("idle wake-ups in " + span, "", {.medianAtMost = checks}, wakeUps),
        Figure::of("idle processor time in " + span, "ms", {.medianAtMost = 10}, processorTime),
        Figure::of("messages of the unchanged menu in " + span, "", {.medianAtMost = 0}, messages)};
}

} // namespace corvane::bench
