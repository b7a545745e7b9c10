#include "Scenario.h"

#include "ClickReport.h"
#include "WaitUntil.h"
#include "probes/Screenshot.h"
#include "probes/WindowTree.h"

#include <X11/keysym.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <iterator>
#include <utility>
#include <vector>

namespace corvane::desktop {

namespace {

constexpr int clickLimit = 20;
/// The zone in its window, and where the pointer is put in it.
constexpr Area zone{120, 80, 160, 120};
constexpr Position inZone{200, 140};

Position operator+(Position one, Position other) { return {one.x + other.x, one.y + other.y}; }

void tell(const std::string &line) { std::cout << line << std::endl; }

/// A line that repeats is printed once, with its count.
void tellLines(const std::vector<std::string> &lines) {
    for (auto line = lines.begin(); line != lines.end();) {
        const auto next =
            std::find_if(line, lines.end(), [line](const auto &each) { return each != *line; });
        const auto times = std::distance(line, next);
        tell("    " + *line + (times > 1 ? " (" + std::to_string(times) + " times)" : ""));
        line = next;
    }
}

bool hasOpenMenu(const DisplayConnection &connection) {
    constexpr int leastHeight = 100;
    return std::ranges::any_of(corvaneWindows(connection), [](const SeenWindow &window) {
        return window.isOverride && window.area.height > leastHeight;
    });
}

} // namespace

Scenario::Scenario(std::filesystem::path pictures)
    : pictures_(std::move(pictures)),
      window_(client_.open({.x = 440, .y = 230})) {
    std::filesystem::create_directories(pictures_);
}

bool Scenario::play() {
    tell("A private desktop is ready on display " + desktop_.display() +
         ": window manager, compositor, panel, and a window of another program.");
    playLimitedRun();
    playAnchoredZone();
    expect(desktop_.isWhole(), "the desktop's programs kept running");
    tell(isAsItShould_ ? "\nEverything went as it should." : "\nNot everything went as it should.");
    return isAsItShould_;
}

void Scenario::playLimitedRun() {
    tell("\nFirst act: " + std::to_string(clickLimit) + " clicks, 10 a second, at the pointer");
    const auto corvane = start({.clickRate = 10, .maxClicks = clickLimit});
    showMenu();
    pointer_.moveTo(client_.position(window_) + inZone);
    tell("The hot key is pressed.");
    keyboard_.pressHotKey();
    waitForMoreClicks(clickLimit / 2);
    takePicture("run");
    corvane->waitForLog("Clicker finished after " + std::to_string(clickLimit) +
                        " clicks (limit reached)");
    client_.waitForClicks(clickLimit);
    const ClickReport report(client_.events());
    tell("The other program got: " + report.text());
    expect(report.presses() == clickLimit && report.releases() == clickLimit,
           "every click arrived");
    end(*corvane);
}

void Scenario::playAnchoredZone() {
    tell("\nSecond act: clicks in a zone that follows its window");
    const Settings settings{
        .clickMode = "zone",
        .clickRate = 10,
        .zone = zone,
        .anchor = Settings::Anchor{.application = "Target", .title = "Target", .relative = zone}};
    const auto corvane = start(settings);
    pointer_.moveTo(client_.position(window_) + inZone);
    keyboard_.pressHotKey();
    expect(waitForMoreClicks(5), "the zone is clicked");
    takePicture("zone");

    const Position before = client_.position(window_);
    constexpr int steps = 30;
    constexpr Position step{-9, -4};
    for (int count = 1; count <= steps; ++count) {
        client_.move(window_, before + Position{step.x * count, step.y * count});
    }
    expect(staysQuiet(), "the place the zone has left is not clicked");
    pointer_.moveTo(client_.position(window_) + inZone);
    expect(waitForMoreClicks(5), "the zone is clicked where the window has taken it");
    takePicture("zone-moved");
    keyboard_.pressHotKey();
    expect(corvane->waitForLogBeginning("Clicker stopped after "), "the hot key stops the run");
    end(*corvane);
}

std::unique_ptr<CorvaneProcess> Scenario::start(const Settings &settings) {
    writeSettings(desktop_, settings.text());
    auto corvane = std::make_unique<CorvaneProcess>(desktop_);
    expect(corvane->waitUntilReady(), "Corvane starts");
    return corvane;
}

void Scenario::end(CorvaneProcess &corvane) {
    corvane.process().signal(SIGTERM);
    expect(corvane.process().waitForEnd() == ProcessEnd{.exitCode = 0}, "Corvane ends in order");
    expect(!pointer_.isLeftButtonDown(), "the mouse button is released");
    tell("The diagnostic log of the run:");
    tellLines(corvane.log());
    std::cout << corvane.standardError();
}

void Scenario::showMenu() {
    std::vector<SeenWindow> windows;
    const bool hasIcon = waitUntil([&] {
        windows = corvaneWindows(desktop_.connection());
        return !windows.empty();
    });
    expect(hasIcon, "the panel shows the icon");
    if (!hasIcon) {
        return;
    }
    pointer_.moveTo(windows.back().middle());
    pointer_.click();
    expect(waitUntil([this] { return hasOpenMenu(desktop_.connection()); }),
           "a click on the icon opens the menu");
    takePicture("menu");
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    expect(waitUntil([this] { return !hasOpenMenu(desktop_.connection()); }),
           "Escape closes the menu");
}

bool Scenario::waitForMoreClicks(int count) const {
    return client_.waitForClicks(client_.pressCount() + count);
}

bool Scenario::staysQuiet() const {
    constexpr std::chrono::milliseconds severalIntervals{500};
    const int before = client_.pressCount();
    return !waitUntil([&] { return client_.pressCount() > before; }, severalIntervals);
}

void Scenario::takePicture(const std::string &name) {
    const std::filesystem::path file = pictures_ / (name + ".png");
    const bool isSaved = Screenshot(desktop_.connection()).savePng(file);
    expect(isSaved, "picture: " + std::filesystem::absolute(file).string());
}

void Scenario::expect(bool isSo, const std::string &what) {
    tell((isSo ? "  ok    " : "  FAILED  ") + what);
    isAsItShould_ = isAsItShould_ && isSo;
}

} // namespace corvane::desktop
