#include "TrackedRun.h"

namespace corvane::bench {

namespace {

constexpr int windowCount = 40;

} // namespace

int TrackedRun::openWindows() {
    for (int count = 1; count < windowCount; ++count) {
        session_.client().open({.title = "Other", .x = 20 * count, .y = 10 * count});
    }
    return session_.client().open({.title = "Followed", .className = "Followed", .y = 60});
}

void TrackedRun::start(const std::vector<std::string> &launcher) {
    corvane_ =
        session_.start({.clickMode = "zone",
                        .clickRate = 1,
                        .zone = relativeZone,
                        .anchor = desktop::Settings::Anchor{"Followed", "Followed", relativeZone}},
                       launcher);
    session_.pointer().moveTo({1200, 780});
    session_.keyboard().pressHotKey();
    requireLog(*corvane_, "Starting clicker");
}

} // namespace corvane::bench
