#include "app/AnchorTracking.h"

#include "platform/MainQueue.h"
#include "services/DynamicZoneRect.h"
#include "services/WindowResolver.h"

#include <chrono>
#include <utility>

namespace corvane {

namespace {

constexpr std::chrono::milliseconds pauseBetweenPasses{16};

} // namespace

AnchorTracking::AnchorTracking(platform::MainQueue &mainQueue, const WindowResolver &resolver,
                               WindowAnchor anchor, std::shared_ptr<DynamicZoneRect> dynamicZone,
                               std::function<void(const Rectangle &zone)> onMoved)
    : mainQueue_(mainQueue),
      resolver_(resolver),
      anchor_(std::move(anchor)),
      dynamicZone_(std::move(dynamicZone)),
      onMoved_(std::move(onMoved)) {
    scheduleNextPass();
}

AnchorTracking::~AnchorTracking() = default;

void AnchorTracking::scheduleNextPass() {
    timer_ = mainQueue_.after(pauseBetweenPasses, [this] { pass(); });
}

void AnchorTracking::pass() {
    const auto resolution = resolver_.find(anchor_);
    if (resolution) {
        dynamicZone_->setRect(resolution->zone);
        onMoved_(resolution->zone);
    }
    // Writing the line takes longer than all before it, and the user waits for the zone.
    WindowResolver::logResolution(resolution);
    scheduleNextPass();
}

} // namespace corvane
