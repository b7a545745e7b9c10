#include "Session.h"

#include <stdexcept>
#include <thread>

namespace corvane::bench {

namespace {

constexpr int leftButton = 1;

} // namespace

Session::Session(const Options &options) : desktop_({.hasCompositor = options.hasCompositor}) {
    client_.open({.x = 300, .y = 250, .isOverride = true});
    pointer_.moveTo(target);
}

std::unique_ptr<desktop::CorvaneProcess> Session::start(const desktop::Settings &settings,
                                                        const std::vector<std::string> &launcher) {
    constexpr std::chrono::milliseconds timeToRest{300};
    // A profiler makes the program some fifty times slower.
    const int slowness = launcher.empty() ? 1 : 10;
    const int items = panel_.itemCount();
    desktop::writeSettings(desktop_, settings.text());
    auto corvane = std::make_unique<desktop::CorvaneProcess>(
        desktop_, desktop::CorvaneProcess::Options{.launcher = launcher});
    const auto limit = slowness * desktop::timeLimit;
    const bool isReady = corvane->waitForLogBeginning("Hotkey (", 1, limit) &&
                         desktop::waitUntil([&] { return panel_.itemCount() > items; }, limit);
    if (!isReady) {
        throw std::runtime_error("The program does not start:\n" + corvane->story());
    }
    std::this_thread::sleep_for(slowness * timeToRest);
    return corvane;
}

void Session::awaitClicks(int count) {
    if (!client_.waitForClicks(count)) {
        throw std::runtime_error("Clicks are missing");
    }
}

Clicks Session::newClicks() {
    std::vector<desktop::ButtonEvent> events = client_.events();
    std::erase_if(events, [](const auto &event) { return event.button != leftButton; });
    const auto known = static_cast<std::ptrdiff_t>(knownEvents_);
    knownEvents_ = events.size();
    events.erase(events.begin(), events.begin() + known);
    return Clicks(events);
}

void awaitFinish(desktop::CorvaneProcess &corvane, std::chrono::milliseconds leastTime) {
    std::this_thread::sleep_for(leastTime);
    requireLog(corvane, "Clicker finished after ", 1, leastTime + desktop::timeLimit);
}

void requireLog(desktop::CorvaneProcess &corvane, std::string_view beginning, int count,
                std::chrono::milliseconds limit) {
    if (!corvane.waitForLogBeginning(beginning, count, limit)) {
        throw std::runtime_error("Not logged: " + std::string(beginning) + "\n" + corvane.story());
    }
}

} // namespace corvane::bench
