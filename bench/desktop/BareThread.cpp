#include "BareThread.h"

#include "ProcessUsage.h"

#include <thread>

#include <sys/prctl.h>

namespace corvane::bench {

Samples costsOfTurns(std::chrono::milliseconds pause, int turns,
                     const std::function<void()> &work) {
    Samples costs;
    std::thread([&] {
        prctl(PR_SET_TIMERSLACK, 1);
        double before = threadMilliseconds();
        for (int turn = 0; turn < turns; ++turn) {
            std::this_thread::sleep_for(pause);
            work();
            const double now = threadMilliseconds();
            costs.add(now - before);
            before = now;
        }
    }).join();
    return costs;
}

} // namespace corvane::bench
