#include "WaylandTest.h"

namespace corvane::desktop {

std::unique_ptr<CorvaneProcess> WaylandTest::start(const Settings &settings) {
    writeSettings(desktop_, settings.text());
    auto corvane = std::make_unique<CorvaneProcess>(desktop_);
    EXPECT_TRUE(corvane->waitUntilReady()) << corvane->story();
    if (desktop_.consent()) {
        EXPECT_TRUE(corvane->waitForLog("The desktop's portal lets Corvane click"))
            << corvane->story();
        client_.moveTo(target);
    }
    return corvane;
}

bool WaylandTest::waitForMoreClicks(int count) {
    const int before = client_.pressCount();
    return waitUntil([&] { return client_.pressCount() >= before + count; });
}

bool WaylandTest::clicksAt(Position position) {
    client_.moveTo(position);
    return waitForMoreClicks(2);
}

bool WaylandTest::isQuietAt(Position position) {
    client_.moveTo(position);
    return waitUntil([this] { return staysQuiet(); });
}

bool WaylandTest::staysQuiet() {
    constexpr std::chrono::milliseconds aWhile{300};
    const int before = client_.pressCount();
    return !waitUntil([&] { return client_.pressCount() > before; }, aWhile);
}

void WaylandTest::openPicker() {
    constexpr Position onSecond{1400, 200};
    constexpr Position onFirst = target;
    client_.open({.title = "Other", .application = "Other", .position = onSecond});
    const std::string first = desktop_.sightAt(onFirst);
    const std::string second = desktop_.sightAt(onSecond);
    CorvaneProcess command(desktop_, {.arguments = {"select-zone"}});
    ASSERT_EQ(command.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << command.story();
    ASSERT_TRUE(waitUntil([&] {
        return desktop_.sightAt(onFirst) != first && desktop_.sightAt(onSecond) != second;
    }));
}

void WaylandTest::drag(Position from, Position to) {
    client_.moveTo(from);
    client_.press();
    client_.moveTo({(from.x + to.x) / 2, (from.y + to.y) / 2});
    client_.moveTo(to);
    client_.release();
}

} // namespace corvane::desktop
