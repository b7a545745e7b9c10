#include "app/CorvaneApp.h"

#include "support/LineCapture.h"
#include "support/Localised.h"
#include "support/TimeLimit.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <future>

namespace corvane {
namespace {

class CorvaneAppTest : public ::testing::Test {
  protected:
    /// The end of the work, on another thread because it may have to wait.
    std::future<void> finishWork() {
        return std::async(std::launch::async, [this] { app->finishWork(); });
    }

    /// Looks for a moment; what waits as it should never fails this.
    static bool isWaiting(const std::future<void> &work) {
        return work.wait_for(std::chrono::milliseconds(50)) == std::future_status::timeout;
    }

    testing::LogCapture log;
    testing::RecordingPlatform platform;
    std::unique_ptr<CorvaneApp> app = std::make_unique<CorvaneApp>(platform);
};

TEST_F(CorvaneAppTest, TheEndOfTheWorkEndsTheRunAndAwaitsIt) {
    platform.clock().setSleepsBlock(true);
    app->sharedServices().clickerService.start({}, nullptr, [](auto, auto) {}, [] {});
    ASSERT_TRUE(platform.clock().awaitBlocked());
    auto work = finishWork();
    EXPECT_TRUE(isWaiting(work));
    platform.clock().setSleepsBlock(false);
    ASSERT_EQ(work.wait_for(testing::timeLimit), std::future_status::ready);
    EXPECT_EQ(log.lines().back(), "Clicker stopped after 1 clicks");
    EXPECT_FALSE(platform.mouseEvents().isButtonPressed());
}

TEST_F(CorvaneAppTest, TheEndOfTheWorkFinishesEverySave) {
    std::promise<void> disk;
    app->sharedServices().storeQueue.post([&disk] { disk.get_future().wait(); });
    app->sharedServices().appState.config.clickRate = 7;
    app->sharedServices().appState.saveConfig();
    const auto work = finishWork();
    EXPECT_TRUE(isWaiting(work));
    disk.set_value();
    ASSERT_EQ(work.wait_for(testing::timeLimit), std::future_status::ready);
    const auto saved = app->sharedServices().configService.currentConfig();
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->clickRate, 7);
}

TEST_F(CorvaneAppTest, TextsAreThoseOfThePlatformAsLongAsItLives) {
    platform.localisation().translations = {{"Quit", "Beenden"}};
    EXPECT_EQ(localised("Quit"), "Beenden");
    app.reset();
    EXPECT_EQ(localised("Quit"), "Quit");
}

} // namespace
} // namespace corvane
