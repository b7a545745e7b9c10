#include "WaylandTest.h"

namespace corvane::desktop {

std::unique_ptr<CorvaneProcess> WaylandTest::start(const Settings &settings) {
    writeSettings(desktop_, settings.text());
    auto corvane = std::make_unique<CorvaneProcess>(desktop_);
    EXPECT_TRUE(corvane->waitUntilReady()) << corvane->story();
    return corvane;
}

bool WaylandTest::waitForMoreClicks(int count) {
    const int before = client_.pressCount();
    return waitUntil([&] { return client_.pressCount() >= before + count; });
}

bool WaylandTest::staysQuiet() {
    constexpr std::chrono::milliseconds aWhile{300};
    const int before = client_.pressCount();
    return !waitUntil([&] { return client_.pressCount() > before; }, aWhile);
}

} // namespace corvane::desktop
