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
/// Between two looks at something nobody announces.
constexpr std::chrono::milliseconds lookAgain{5};

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

void ClickRun::cancel() {
    wait_->cancel();
    // A press that did not see the cancellation is over when this is to be had.
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
    platform::Instant due = clock_.now();
    while (const auto state = awaitReadiness(*mouse, due)) {
        const Point position = state->cursorLocation.value_or(Point{});
        if (isInsideZone(position) && click(*mouse, position)) {
            count_.addOne();
            connections_.onClick(count_.value(), position);
            if (isLimitReached()) {
                log("Clicker finished after " + countText() + " (limit reached)");
                connections_.onFinish();
                return;
            }
        }
        due = clock_.now() + toNanoseconds(interval_);
    }
    log("Clicker stopped after " + countText());
}

/// Waits until the next click is due and can be made. What the mouse is like then; nothing when the
/// run was cancelled.
std::optional<platform::MouseState> ClickRun::awaitReadiness(platform::MouseSession &mouse,
                                                             platform::Instant due) {
    platform::MouseState state;
    do {
        wait_->waitUntil(due, [&] { state = mouse.state(); });
        due = clock_.now() + lookAgain;
    } while (!wait_->isCancelled() && !isReady(state));
    return wait_->isCancelled() ? std::nullopt : std::optional(state);
}

/// A button that is down is held by the user, or its release is stuck behind another program's grab
/// of the pointer: a press would be lost, or be one of many that arrive at once later.
bool ClickRun::isReady(const platform::MouseState &state) const {
    const bool isFull = connections_.backlog && connections_.backlog->isFull();
    return !isFull && state.isLeftButtonDown != true;
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

/// False when the run was cancelled before the press. An event that cannot be made is no reason not
/// to count the click.
bool ClickRun::click(platform::MouseSession &mouse, Point position) {
    const auto source = mouse.createEventSource();
    if (!source) {
        return true;
    }
    const auto down = source->createMouseEvent(platform::MouseEventType::leftMouseDown, position);
    const auto up =
        down ? source->createMouseEvent(platform::MouseEventType::leftMouseUp, position) : nullptr;
    if (!up) {
        return true;
    }
    constexpr std::int64_t singleClick = 1;
    down->setClickState(singleClick);
    up->setClickState(singleClick);
    return holdAndRelease(*down, *up);
}

bool ClickRun::holdAndRelease(platform::MouseEvent &down, platform::MouseEvent &up) {
    std::optional<PressedButton> pressed;
    {
        const std::lock_guard pressing(pressing_);
        if (wait_->isCancelled()) {
            return false;
        }
        pressed.emplace(down, up);
    }
    bool hasTakenEffect = false;
    const auto look = [&] { hasTakenEffect = down.hasTakenEffect(); };
    clock_.hold(holdTime, look);
    // A press stuck behind another program's grab must not be followed by further clicks.
    while (!wait_->isCancelled() && !hasTakenEffect) {
        wait_->waitUntil(clock_.now() + lookAgain, look);
    }
    return true;
}

std::string ClickRun::countText() const { return std::to_string(count_.value()) + " clicks"; }

} // namespace corvane
