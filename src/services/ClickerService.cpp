#include "services/ClickerService.h"

#include "platform/ContinuousClock.h"
#include "platform/MouseEvents.h"
#include "support/Log.h"
#include "support/NumberText.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

namespace corvane {

namespace {

constexpr std::chrono::milliseconds holdTime{10};

std::string clicksText(std::int64_t count) { return std::to_string(count) + " clicks"; }

/// For an interval between clicks: an hour at most, so nothing can overflow.
std::chrono::nanoseconds toNanoseconds(double seconds) {
    constexpr double nanosecondsPerSecond = 1e9;
    return std::chrono::nanoseconds(static_cast<std::int64_t>(seconds * nanosecondsPerSecond));
}

/// Sends the button's release when it goes, whatever happened since the press.
class PressedButton {
  public:
    PressedButton(platform::MouseEvent &down, platform::MouseEvent &up) : up_(up) { down.post(); }
    ~PressedButton() { up_.post(); }
    PressedButton(const PressedButton &) = delete;
    PressedButton &operator=(const PressedButton &) = delete;

  private:
    platform::MouseEvent &up_;
};

} // namespace

/// One click loop with its private copy of what it needs.
class ClickerService::Run {
  public:
    Run(const CorvaneConfig &config, std::shared_ptr<DynamicZoneRect> dynamicZone,
        ClickCallback onClick, FinishCallback onFinish, platform::MouseEvents &mouseEvents,
        platform::ContinuousClock &clock)
        : mode_(config.clickMode),
          interval_(config.clickInterval()),
          limit_(config.maxClicks),
          liveZone_(std::move(dynamicZone)),
          fixedZone_(config.zoneRect),
          onClick_(std::move(onClick)),
          onFinish_(std::move(onFinish)),
          mouseEvents_(mouseEvents),
          clock_(clock),
          wait_(clock.makeWait()) {}
    ~Run() {
        if (thread_.joinable()) {
            thread_.join();
        }
    }
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    /// False when the system has no thread for it.
    bool begin() {
        try {
            thread_ = std::thread([this] {
                clickLoop();
                hasEnded_ = true;
            });
        } catch (const std::system_error &error) {
            log("Clicker not started: no thread for it: " + error.code().message());
            return false;
        }
        return true;
    }
    void cancel() { wait_->cancel(); }
    bool hasEnded() const { return hasEnded_; }

  private:
    void clickLoop();
    bool isInsideZone(Point position) const;
    void click(platform::MouseSession &mouse, Point position);
    bool isLimitReached() const { return limit_ >= 1 && count_ >= limit_; }
    void countClick();

    const ClickMode mode_;
    const double interval_;
    const std::int64_t limit_;
    const std::shared_ptr<DynamicZoneRect> liveZone_;
    const std::optional<CodableRect> fixedZone_;
    const ClickCallback onClick_;
    const FinishCallback onFinish_;
    platform::MouseEvents &mouseEvents_;
    platform::ContinuousClock &clock_;
    const std::unique_ptr<platform::CancellableWait> wait_;
    std::int64_t count_ = 0;
    std::atomic<bool> hasEnded_ = false;
    std::thread thread_;
};

void ClickerService::Run::clickLoop() {
    log("Clicker started: mode=" + std::string(storedValue(mode_)) +
        " interval=" + decimalText(interval_) + "s maxClicks=" + std::to_string(limit_));
    const auto mouse = mouseEvents_.openSession();
    while (!wait_->isCancelled()) {
        const Point position = mouse->cursorLocation().value_or(Point{});
        if (isInsideZone(position)) {
            click(*mouse, position);
            countClick();
            onClick_(count_, position);
            if (isLimitReached()) {
                log("Clicker finished after " + clicksText(count_) + " (limit reached)");
                onFinish_();
                return;
            }
        }
        wait_->waitUntil(clock_.now() + toNanoseconds(interval_));
    }
    log("Clicker stopped after " + clicksText(count_));
}

bool ClickerService::Run::isInsideZone(Point position) const {
    if (mode_ != ClickMode::zone) {
        return true;
    }
    if (const auto live = liveZone_ ? liveZone_->rect() : std::nullopt) {
        return live->contains(position);
    }
    return !fixedZone_ || fixedZone_->rectangle().contains(position);
}

void ClickerService::Run::click(platform::MouseSession &mouse, Point position) {
    const auto source = mouse.createEventSource();
    if (!source) {
        return;
    }
    const auto down = source->createMouseEvent(platform::MouseEventType::leftMouseDown, position);
    const auto up =
        down ? source->createMouseEvent(platform::MouseEventType::leftMouseUp, position) : nullptr;
    if (!up) {
        return;
    }
    constexpr std::int64_t singleClick = 1;
    down->setClickState(singleClick);
    up->setClickState(singleClick);
    const PressedButton pressed(*down, *up);
    clock_.hold(holdTime);
}

void ClickerService::Run::countClick() {
    if (count_ == std::numeric_limits<std::int64_t>::max()) {
        std::abort();
    }
    ++count_;
}

ClickerService::ClickerService(platform::MouseEvents &mouseEvents, platform::ContinuousClock &clock)
    : mouseEvents_(mouseEvents),
      clock_(clock) {}

ClickerService::~ClickerService() {
    stop();
    awaitEnd();
}

void ClickerService::start(const CorvaneConfig &config,
                           std::shared_ptr<DynamicZoneRect> dynamicZone, ClickCallback onClick,
                           FinishCallback onFinish) {
    {
        const std::lock_guard lock(mutex_);
        cancelClickTask();
        std::erase_if(endingRuns_, [](const auto &run) { return run->hasEnded(); });
        auto run = std::make_unique<Run>(config, std::move(dynamicZone), std::move(onClick),
                                         onFinish, mouseEvents_, clock_);
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
    std::vector<std::unique_ptr<Run>> ending;
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
