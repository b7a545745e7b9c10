#include "TimedLoop.h"
#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "state/AppState.h"
#include "support/SerialQueue.h"
#include "support/recorder/RecordingPlatform.h"
#include "ui/StatusBarController.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace corvane::bench {

namespace {

/// A run in an anchored zone, with as many profiles as a user may ever have.
void fill(AppState &state) {
    constexpr int profileCount = 500;
    state.status = ClickStatus::running;
    state.isAccessibilityGranted = true;
    state.config.clickMode = ClickMode::zone;
    state.config.zoneRect = CodableRect{10, 20, 300, 200};
    state.config.windowAnchor = WindowAnchor{"org.example.editor", "Report", {1, 2, 300, 200}};
    for (int number = 1; number <= profileCount; ++number) {
        state.profiles.push_back(
            Profile::fromConfig("Profile number " + std::to_string(number), state.config));
    }
    state.activeProfileID = state.profiles.front().id;
}

void buildMenuWith500Profiles(benchmark::State &benchmark) {
    testing::RecordingPlatform platform;
    ConfigService configService(platform.fileSystem(), "/home/user");
    ProfileService profileService(platform.fileSystem(), "/home/user");
    SerialQueue storeQueue;
    AppState state(configService, profileService, storeQueue, platform.mainQueue());
    fill(state);
    const StatusBarController controller(state, platform.applications());
    timeEachPass(
        benchmark, [&] { benchmark::DoNotOptimize(controller.menu()); },
        [&state] { ++state.clickCount; });
}

} // namespace

BENCHMARK(buildMenuWith500Profiles)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace corvane::bench
