#include "TimedLoop.h"
#include "platform/posix/PosixFileSystem.h"
#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "state/AppState.h"
#include "support/SerialQueue.h"
#include "support/TemporaryDirectory.h"
#include "support/recorder/RecordingPlatform.h"

#include <benchmark/benchmark.h>

namespace corvane::bench {

namespace {

/// What the main thread does for a save; the file is written by the store's thread meanwhile.
void saveConfigOnMainThread(benchmark::State &benchmark) {
    const testing::TemporaryDirectory home;
    testing::RecordingPlatform platform;
    posix::PosixFileSystem files;
    ConfigService configService(files, home.path());
    ProfileService profileService(files, home.path());
    SerialQueue storeQueue;
    AppState state(configService, profileService, storeQueue, platform.mainQueue());
    timeEachPass(
        benchmark, [&state] { state.saveConfig(); },
        [&] {
            storeQueue.drain();
            ++state.config.clickRate;
        });
}

} // namespace

BENCHMARK(saveConfigOnMainThread)->UseManualTime()->Iterations(1000);

} // namespace corvane::bench
