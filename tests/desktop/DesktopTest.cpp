#include "DesktopTest.h"

#include <algorithm>
#include <utility>

namespace corvane::desktop {

namespace {

constexpr int leftButton = 1;
/// One the program never presses.
constexpr int ownButton = 3;

} // namespace

std::unique_ptr<CorvaneProcess> DesktopTest::start(const Settings &settings,
                                                   CorvaneProcess::Options options) {
    writeSettings(desktop_, settings.text());
    auto corvane = std::make_unique<CorvaneProcess>(desktop_, std::move(options));
    EXPECT_TRUE(corvane->waitUntilReady()) << corvane->story();
    return corvane;
}

void DesktopTest::waitForEverything() {
    const Position position = pointer_.position();
    pointer_.moveTo(target);
    pointer_.click(ownButton);
    pointer_.moveTo(position);
    ++ownClicks_;
    const bool hasArrived = waitUntil([this] {
        return std::ranges::count_if(client_.events(), [](const ButtonEvent &event) {
                   return event.button == ownButton && !event.isPress;
               }) == ownClicks_;
    });
    EXPECT_TRUE(hasArrived);
}

int DesktopTest::clickCount() const {
    return static_cast<int>(std::ranges::count_if(client_.events(), [](const ButtonEvent &event) {
        return event.button == leftButton && event.isPress;
    }));
}

bool DesktopTest::staysQuiet() {
    constexpr std::chrono::milliseconds aWhile{300};
    waitForEverything();
    const int before = clickCount();
    return !waitUntil([&] { return clickCount() > before; }, aWhile);
}

bool DesktopTest::waitForMoreClicks(int count) {
    const int before = clickCount();
    return waitUntil([&] { return clickCount() >= before + count; });
}

} // namespace corvane::desktop
