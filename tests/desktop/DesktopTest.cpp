#include "DesktopTest.h"

#include "harness/probes/WindowTree.h"

#include <algorithm>
#include <string>
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

void DesktopTest::keepWindowManagerOut() {
    window_ = client_.open({.x = 300, .y = 250, .isOverride = true});
}

void DesktopTest::waitForEverything() {
    // A corner of the window where no test has its zone.
    constexpr Position corner{380, 280};
    const Position position = pointer_.position();
    const Position window = client_.position(window_);
    pointer_.moveTo({window.x + corner.x, window.y + corner.y});
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

void DesktopTest::expectRunEnded(const CorvaneProcess &corvane) {
    EXPECT_FALSE(pointer_.isLeftButtonDown());
    waitForEverything();
    EXPECT_EQ(client_.pressCount(), client_.releaseCount());
    EXPECT_EQ(corvane.log().back(),
              "Clicker stopped after " + std::to_string(clickCount()) + " clicks");
}

bool DesktopTest::answerAlert(xcb_keysym_t key) {
    const auto isReady = [this] {
        const xcb_window_t shown = alert();
        return shown != XCB_WINDOW_NONE && desktop_.connection().focus() == shown;
    };
    if (!waitUntil(isReady)) {
        return false;
    }
    keyboard_.tap(keyboard_.keyOf(key));
    return waitUntil([this] { return alert() == XCB_WINDOW_NONE; });
}

/// Everything else the program shows keeps the window manager out.
xcb_window_t DesktopTest::alert() const {
    constexpr int leastWidth = 100;
    const auto windows = corvaneWindows(desktop_.connection());
    const auto alert = std::ranges::find_if(windows, [](const SeenWindow &window) {
        return !window.isOverride && window.area.width > leastWidth;
    });
    return alert != windows.end() ? alert->id : xcb_window_t{XCB_WINDOW_NONE};
}

bool DesktopTest::hasMenu() const {
    constexpr int leastHeight = 100;
    return std::ranges::any_of(corvaneWindows(desktop_.connection()), [](const SeenWindow &window) {
        return window.isOverride && window.area.height > leastHeight;
    });
}

} // namespace corvane::desktop
