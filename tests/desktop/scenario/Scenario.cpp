#include "Scenario.h"

#include "ClickReport.h"
#include "WaitUntil.h"

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

void print(const std::string &line) { std::cout << line << std::endl; }

/// A line that repeats is printed once, with its count.
void printLines(const std::vector<std::string> &lines) {
    for (auto line = lines.begin(); line != lines.end();) {
        const auto next =
            std::find_if(line, lines.end(), [line](const auto &each) { return each != *line; });
        const auto times = std::distance(line, next);
        print("    " + *line + (times > 1 ? " (" + std::to_string(times) + " times)" : ""));
        line = next;
    }
}

} // namespace

Scenario::Scenario(Stage &stage, std::filesystem::path pictures)
    : stage_(stage),
      pictures_(std::move(pictures)) {
    std::filesystem::create_directories(pictures_);
}

bool Scenario::play() {
    print("A private desktop is ready " + stage_.description() + ".");
    playLimitedRun();
    playAnchoredZone();
    expect(stage_.isWhole(), "the desktop's programs kept running");
    print(isAsItShould_ ? "\nEverything went as it should."
                        : "\nNot everything went as it should.");
    return isAsItShould_;
}

void Scenario::playLimitedRun() {
    print("\nFirst act: " + std::to_string(clickLimit) + " clicks, 10 a second, at the pointer");
    const auto corvane = start({.clickRate = 10, .maxClicks = clickLimit});
    stage_.visitMenu([this](bool isSo, const std::string &what) { expect(isSo, what); },
                     [this] { takePicture("menu"); });
    stage_.movePointer(inZone);
    print("The hot key is pressed.");
    stage_.pressHotKey();
    waitForMoreClicks(clickLimit / 2);
    takePicture("run");
    corvane->waitForLog("Clicker finished after " + std::to_string(clickLimit) +
                        " clicks (limit reached)");
    waitForClicks(clickLimit);
    const ClickReport report(stage_.buttonChanges());
    print("The other program got: " + report.text());
    expect(report.presses() == clickLimit && report.releases() == clickLimit,
           "every click arrived");
    end(*corvane);
}

void Scenario::playAnchoredZone() {
    print("\nSecond act: clicks in a zone that follows its window");
    const auto corvane = start(
        {.clickMode = "zone",
         .clickRate = 10,
         .zone = zone,
         .anchor = Settings::Anchor{.application = "Target", .title = "Target", .relative = zone}});
    stage_.movePointer(inZone);
    stage_.pressHotKey();
    expect(waitForMoreClicks(5), "the zone is clicked");
    takePicture("zone");

    stage_.moveWindow();
    expect(waitUntil([this] { return staysQuiet(); }),
           "the place the zone has left is not clicked");
    stage_.movePointer(inZone);
    expect(waitForMoreClicks(5), "the zone is clicked where the window has taken it");
    takePicture("zone-moved");
    stage_.pressHotKey();
    expect(corvane->waitForLogBeginning("Clicker stopped after "), "the hot key stops the run");
    end(*corvane);
}

std::unique_ptr<CorvaneProcess> Scenario::start(const Settings &settings) {
    writeSettings(stage_.desktop(), settings.text());
    auto corvane = std::make_unique<CorvaneProcess>(stage_.desktop());
    expect(corvane->waitUntilReady(), "Corvane starts");
    return corvane;
}

void Scenario::end(CorvaneProcess &corvane) {
    corvane.process().signal(SIGTERM);
    expect(corvane.process().waitForEnd() == ProcessEnd{.exitCode = 0}, "Corvane ends in order");
    expect(!stage_.isButtonDown(), "the mouse button is released");
    print("The diagnostic log of the run:");
    printLines(corvane.log());
    std::cout << corvane.standardError();
}

bool Scenario::waitForClicks(std::size_t count) const {
    return waitUntil([&] { return stage_.buttonChanges().size() >= 2 * count; });
}

bool Scenario::waitForMoreClicks(std::size_t count) const {
    return waitForClicks(stage_.buttonChanges().size() / 2 + count);
}

bool Scenario::staysQuiet() const {
    constexpr std::chrono::milliseconds severalIntervals{500};
    const std::size_t before = stage_.buttonChanges().size();
    return !waitUntil([&] { return stage_.buttonChanges().size() > before; }, severalIntervals);
}

void Scenario::takePicture(const std::string &name) {
    const std::filesystem::path file = pictures_ / (name + ".png");
    expect(stage_.savePicture(file), "picture: " + std::filesystem::absolute(file).string());
}

void Scenario::expect(bool isSo, const std::string &what) {
    print((isSo ? "  ok    " : "  FAILED  ") + what);
    isAsItShould_ = isAsItShould_ && isSo;
}

} // namespace corvane::desktop
