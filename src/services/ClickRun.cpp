#include "services/ClickRun.h"

#include "support/Log.h"
#include "support/NumberText.h"

#include <chrono>
#include <exception>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr std::chrono::milliseconds holdTime{10};
/// How often a mouse that is not ready is checked again.
constexpr std::chrono::milliseconds retryInterval{5};

/// For an interval between clicks: an hour at most, so nothing can overflow.
std::chrono::nanoseconds toNanoseconds(double seconds) {
    constexpr double nanosecondsPerSecond = 1e9;
    return std::chrono::nanoseconds(static_cast<std::int64_t>(seconds * nanosecondsPerSecond));
}

/// Presses the button, and releases it when destroyed, whatever happened in between.
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

ClickRun::ClickRun(const CorvaneConfig &config, ClickRunConnections connections,
                   platform::MouseEvents &mouseEvents, platform::ContinuousClock &clock)
    : mode_(config.clickMode),
      interval_(config.clickInterval()),
      limit_(config.maxClicks),
      fixedZone_(config.zoneRect),
      connections_(std::move(connections)),
      mouseEvents_(mouseEvents),
      clock_(clock),
      wait_(clock.makeWait()) {}

ClickRun::~ClickRun() {
    if (thread_.joinable()) {
        thread_.join();
    }
}

bool ClickRun::begin() {
    try {
        thread_ = std::thread([this] {
            run();
            hasEnded_ = true;
        });
    } catch (const std::system_error &error) {
        log("Clicker not started: no thread for it: " + error.code().message());
        return false;
    }
    return true;
}

/// Waits for a press that began before the cancellation.
void ClickRun::cancel() {
    wait_->cancel();
    const std::lock_guard pressing(pressing_);
}

/// Nothing here is expected to fail, but a run that does must not take the program along.
void ClickRun::run() {
    try {
        clickLoop();
    } catch (const std::exception &error) {
        log(std::string("Clicker failed: ") + error.what());
        log("Clicker stopped after " + countText());
        connections_.onFinish();
    }
}

void ClickRun::clickLoop() {
    log("Clicker started: mode=" + std::string(storedValue(mode_)) +
        " interval=" + decimalText(interval_) + "s maxClicks=" + std::to_string(limit_));
    const auto mouse = mouseEvents_.openSession();
    auto position = awaitReadyMouse(*mouse, clock_.now());
    while (position) {
        if (isInsideZone(*position) && click(*mouse, *position)) {
            count_.addOne();
            connections_.onClick(count_.value(), *position);
            if (isLimitReached()) {
                log("Clicker finished after " + countText() + " (limit reached)");
                connections_.onFinish();
                return;
            }
        }
        position = awaitReadyMouse(*mouse, clock_.now() + toNanoseconds(interval_));
    }
    log("Clicker stopped after " + countText());
}

/// Waits until `due`, and then until the mouse takes the next event. Where the cursor is; nothing
/// when the run was cancelled.
std::optional<Point> ClickRun::awaitReadyMouse(platform::MouseSession &mouse,
                                               platform::Instant due) {
    std::optional<Point> position;
    do {
        wait_->waitUntil(due, [&] { position = mouse.readyPosition(); });
        due = clock_.now() + retryInterval;
    } while (!wait_->isCancelled() && (!position || isBacklogFull()));
    return wait_->isCancelled() ? std::nullopt : position;
}

bool ClickRun::isBacklogFull() const {
    return connections_.backlog && connections_.backlog->isFull();
}

bool ClickRun::isInsideZone(Point position) const {
    if (mode_ != ClickMode::zone) {
        return true;
    }
    if (const auto live = connections_.liveZone ? connections_.liveZone->rect() : std::nullopt) {
        return live->contains(position);
    }
    return !fixedZone_ || fixedZone_->rectangle().contains(position);
}

/// False when the run was cancelled before the press. A click whose events cannot be created is
/// counted all the same.
bool ClickRun::click(platform::MouseSession &mouse, Point position) {
    const auto source = mouse.createEventSource();
    const auto down = source->createMouseEvent(platform::MouseEventType::leftMouseDown, position);
    const auto up =
        down ? source->createMouseEvent(platform::MouseEventType::leftMouseUp, position) : nullptr;
    if (!up) {
        return true;
    }
    constexpr std::int64_t singleClick = 1;
    down->setClickState(singleClick);
    up->setClickState(singleClick);
    std::optional<PressedButton> pressed;
    {
        const std::lock_guard pressing(pressing_);
        if (wait_->isCancelled()) {
            return false;
        }
        pressed.emplace(*down, *up);
    }
    clock_.sleepFor(holdTime);
    // While another program's grab holds the press up, the release has to wait.
    awaitReadyMouse(mouse, clock_.now());
    return true;
}

std::string ClickRun::countText() const { return std::to_string(count_.value()) + " clicks"; }

} // namespace corvane
