#include "WaylandScenario.h"

#include "WaitUntil.h"

#include <csignal>
#include <iostream>
#include <utility>

namespace corvane::desktop {

namespace {

constexpr int clickLimit = 20;
constexpr Position window{440, 230};
/// The zone in its window, and where the pointer is put in it.
constexpr Area zone{120, 80, 160, 120};
constexpr Position inZone{200, 140};

Position operator+(Position one, Position other) { return {one.x + other.x, one.y + other.y}; }

void tell(const std::string &line) { std::cout << line << std::endl; }

} // namespace

WaylandScenario::WaylandScenario(std::string compositor, std::filesystem::path pictures)
    : compositor_(std::move(compositor)),
      pictures_(std::move(pictures)),
      ownDesktop_(makeWaylandDesktop(compositor_)) {
    std::filesystem::create_directories(pictures_);
    client_.open({.position = window});
}

bool WaylandScenario::play() {
    tell("A private Wayland desktop is ready: " + compositor_ +
         ", two monitors, and a window of another program.");
    playLimitedRun();
    playAnchoredZone();
    expect(desktop_.isWhole(), "the compositor kept running");
    tell(isAsItShould_ ? "\nEverything went as it should." : "\nNot everything went as it should.");
    return isAsItShould_;
}

void WaylandScenario::playLimitedRun() {
    tell("\nFirst act: " + std::to_string(clickLimit) + " clicks, 10 a second, at the pointer");
    const auto corvane = start({.clickRate = 10, .maxClicks = clickLimit});
    client_.moveTo(window + inZone);
    tell("The hot key is pressed.");
    desktop_.pressHotKey();
    waitForMoreClicks(clickLimit / 2);
    takePicture("run");
    corvane->waitForLog("Clicker finished after " + std::to_string(clickLimit) +
                        " clicks (limit reached)");
    client_.waitForClicks(clickLimit);
    expect(client_.pressCount() == clickLimit && client_.releaseCount() == clickLimit,
           "every click arrived");
    expect(client_.events().back().position == inZone, "the pointer is where it was");
    end(*corvane);
}

void WaylandScenario::playAnchoredZone() {
    tell("\nSecond act: clicks in a zone that follows its window");
    const auto corvane = start(
        {.clickMode = "zone",
         .clickRate = 10,
         .zone = zone,
         .anchor = Settings::Anchor{.application = "Target", .title = "Target", .relative = zone}});
    client_.moveTo(window + inZone);
    desktop_.pressHotKey();
    expect(waitForMoreClicks(5), "the zone is clicked");
    takePicture("zone");
    constexpr Position moved{100, 420};
    desktop_.place("Target", moved);
    expect(waitUntil([this] { return staysQuiet(); }),
           "the place the zone has left is not clicked");
    client_.moveTo(moved + inZone);
    expect(waitForMoreClicks(5), "the zone is clicked where the window has taken it");
    takePicture("zone-moved");
    desktop_.pressHotKey();
    expect(corvane->waitForLogBeginning("Clicker stopped after "), "the hot key stops the run");
    end(*corvane);
}

std::unique_ptr<CorvaneProcess> WaylandScenario::start(const Settings &settings) {
    writeSettings(desktop_, settings.text());
    auto corvane = std::make_unique<CorvaneProcess>(desktop_);
    expect(corvane->waitUntilReady(), "Corvane starts");
    return corvane;
}

void WaylandScenario::end(CorvaneProcess &corvane) {
    corvane.process().signal(SIGTERM);
    expect(corvane.process().waitForEnd() == ProcessEnd{.exitCode = 0}, "Corvane ends in order");
    expect(client_.pressCount() == client_.releaseCount(), "the mouse button is released");
    std::cout << corvane.standardError();
}

bool WaylandScenario::waitForMoreClicks(int count) const {
    return client_.waitForClicks(client_.pressCount() + count);
}

bool WaylandScenario::staysQuiet() const {
    constexpr std::chrono::milliseconds severalIntervals{500};
    const int before = client_.pressCount();
    return !waitUntil([&] { return client_.pressCount() > before; }, severalIntervals);
}

void WaylandScenario::takePicture(const std::string &name) const {
    const std::filesystem::path file = pictures_ / (compositor_ + "-" + name + ".png");
    desktop_.saveScreenshot(file);
    tell("  picture: " + std::filesystem::absolute(file).string());
}

void WaylandScenario::expect(bool isSo, const std::string &what) {
    tell((isSo ? "  ok    " : "  FAILED  ") + what);
    isAsItShould_ = isAsItShould_ && isSo;
}

} // namespace corvane::desktop
