#include "DesktopTest.h"
#include "harness/actors/StatusPanel.h"

#include <gmock/gmock.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;

/// What a user sees in another language, and that what is written down stays English.
class LanguageTest : public DesktopTest {
  protected:
    StatusPanel panel_{desktop_};
};

TEST_F(LanguageTest, TheMenuSpeaksTheUsersLanguageAndTheLogEnglish) {
    const auto corvane =
        start({.clickRate = 10, .maxClicks = 2}, {.environment = {{"LANG", "de_DE.UTF-8"}}});
    ASSERT_TRUE(panel_.waitForItem()) << corvane->story();
    ASSERT_TRUE(waitUntil([&] { return panel_.line("Starten").has_value(); })) << corvane->story();
    EXPECT_TRUE(panel_.line("Corvane beenden"));
    EXPECT_TRUE(panel_.line("Klickrate: 10/s — 2x"));

    ASSERT_TRUE(panel_.choose("Starten"));
    EXPECT_TRUE(corvane->waitForLog("Clicker finished after 2 clicks (limit reached)"))
        << corvane->story();
    EXPECT_EQ(corvane->logCount("Clicker started: mode=cursor interval=0.1s maxClicks=2"), 1);
    EXPECT_THAT(corvane->standardOutput(), HasSubstr("[Corvane] Loaded config from "));
}

TEST_F(LanguageTest, TheListOfLanguagesGoesBeforeTheLocale) {
    const auto corvane =
        start({}, {.environment = {{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "pt:ja:de"}}});
    ASSERT_TRUE(panel_.waitForItem()) << corvane->story();
    EXPECT_TRUE(waitUntil([&] { return panel_.line("Corvaneを終了").has_value(); }))
        << corvane->story();
}

} // namespace

} // namespace corvane::desktop
