#include "support/AppDelegateTest.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace corvane::testing {

AppDelegateTest::AppDelegateTest() {
    const char *system = std::getenv("CORVANE_TEST_SYSTEM"); // NOLINT(concurrency-mt-unsafe)
    if (system != nullptr && std::string_view(system) == "mac") {
        platform.behaveAsMac();
    }
}

void AppDelegateTest::launch() {
    delegate->applicationDidFinishLaunching();
    ASSERT_TRUE(
        platform.mainQueue().turnUntil([this] { return platform.hotKeys().registrations > 0; }));
}

void AppDelegateTest::settle() {
    shared.storeQueue.drain();
    platform.mainQueue().turnUntilIdle();
}

void AppDelegateTest::startRunning() {
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    ASSERT_TRUE(platform.clock().awaitBlocked());
    platform.mainQueue().turnUntilIdle();
}

void AppDelegateTest::awaitIdle() {
    ASSERT_TRUE(
        platform.mainQueue().turnUntil([this] { return state().status == ClickStatus::idle; }));
    shared.clickerService.awaitEnd();
    platform.mainQueue().turnUntilIdle();
}

std::ptrdiff_t AppDelegateTest::logged(const std::string &line) const {
    const auto messages = logCapture.lines();
    return std::count(messages.begin(), messages.end(), line);
}

std::string AppDelegateTest::configFile() {
    return platform.fileSystem()
        .content(shared.configService.configFileURL())
        .value_or(std::string());
}

void AppDelegateTest::anchorZone() {
    platform.applications().runningApplications = {{7, "org.example.editor"}};
    platform.applications().names = {{"org.example.editor", "Editor"}};
    platform.accessibility().windowsByProcess[7] = {
        {.title = "Report", .position = Point{100, 200}, .size = Size{800, 600}}};
    state().config.zoneRect = CodableRect{1, 2, 200, 80};
    state().config.windowAnchor = WindowAnchor{"org.example.editor", "Report", {30, 60, 200, 80}};
}

} // namespace corvane::testing
