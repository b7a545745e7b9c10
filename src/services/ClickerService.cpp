#include "services/ClickerService.h"

#include "services/ClickRun.h"

#include <utility>

namespace corvane {

ClickerService::ClickerService(platform::MouseEvents &mouseEvents, platform::ContinuousClock &clock)
    : mouseEvents_(mouseEvents),
      clock_(clock) {}

ClickerService::~ClickerService() {
    stop();
    awaitEnd();
}

void ClickerService::start(const CorvaneConfig &config,
                           std::shared_ptr<DynamicZoneRect> dynamicZone, ClickCallback onClick,
                           const FinishCallback &onFinish,
                           std::shared_ptr<const ClickBacklog> backlog) {
    {
        const std::lock_guard lock(mutex_);
        cancelClickTask();
        std::erase_if(endingRuns_, [](const auto &run) { return run->hasEnded(); });
        auto run =
            std::make_unique<ClickRun>(config,
                                       ClickRunConnections{.liveZone = std::move(dynamicZone),
                                                           .onClick = std::move(onClick),
                                                           .onFinish = onFinish,
                                                           .backlog = std::move(backlog)},
                                       mouseEvents_, clock_);
        if (run->begin()) {
            clickTask_ = std::move(run);
            return;
        }
    }
    onFinish();
}

void ClickerService::stop() {
    const std::lock_guard lock(mutex_);
    cancelClickTask();
}

void ClickerService::awaitEnd() {
    std::vector<std::unique_ptr<ClickRun>> ending;
    {
        const std::lock_guard lock(mutex_);
        ending.swap(endingRuns_);
    }
}

void ClickerService::cancelClickTask() {
    if (clickTask_) {
        clickTask_->cancel();
        endingRuns_.push_back(std::move(clickTask_));
    }
}

} // namespace corvane
