#include "state/AppState.h"

#include "model/Json.h"
#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "support/LineCapture.h"
#include "support/Localised.h"
#include "support/SerialQueue.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <future>
#include <optional>

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

const std::filesystem::path configFile = "/home/user/.config/corvane/config.json";
const std::filesystem::path profilesFile = "/home/user/.config/corvane/profiles.json";
const CorvaneConfig anchored{.clickMode = ClickMode::zone,
                             .zoneRect = CodableRect{10, 20, 30, 40},
                             .windowAnchor =
                                 WindowAnchor{"org.example.browser", "Start", {1, 2, 30, 40}},
                             .clickRate = 5,
                             .timeUnit = TimeUnit::minutes,
                             .maxClicks = 7};

class AppStateTest : public ::testing::Test {
  protected:
    void loadConfig() {
        bool isDone = false;
        state_->loadConfig([&isDone] { isDone = true; });
        EXPECT_FALSE(isDone);
        EXPECT_TRUE(platform_.mainQueue().turnUntil([&isDone] { return isDone; }));
    }

    void loadProfiles() {
        bool isDone = false;
        state_->loadProfiles([&isDone] { isDone = true; });
        EXPECT_FALSE(isDone);
        EXPECT_TRUE(platform_.mainQueue().turnUntil([&isDone] { return isDone; }));
    }

    CorvaneConfig savedConfig() {
        storeQueue_.drain();
        return decodeConfig(files().content(configFile).value_or("")).value();
    }

    ProfileStore savedProfiles() {
        storeQueue_.drain();
        return decodeProfileStore(files().content(profilesFile).value_or("")).value();
    }

    std::vector<std::filesystem::path> writes() {
        storeQueue_.drain();
        return files().writes();
    }

    testing::MemoryFileSystem &files() { return platform_.fileSystem(); }

    testing::LogCapture log_;
    testing::OutputCapture output_;
    testing::RecordingPlatform platform_;
    ConfigService configService_{platform_.fileSystem(), "/home/user"};
    ProfileService profileService_{platform_.fileSystem(), "/home/user"};
    SerialQueue storeQueue_;
    std::optional<AppState> state_{std::in_place, configService_, profileService_, storeQueue_,
                                   platform_.mainQueue()};
};

TEST_F(AppStateTest, BeginsIdleWithTheDefaults) {
    EXPECT_EQ(state_->config, CorvaneConfig{});
    EXPECT_EQ(state_->status, ClickStatus::idle);
    EXPECT_EQ(state_->clickCount, 0);
    EXPECT_FALSE(state_->isAccessibilityGranted);
    EXPECT_TRUE(state_->profiles.empty());
    EXPECT_EQ(state_->activeProfileID, std::nullopt);
    EXPECT_EQ(writes().size(), 0U);
}

TEST_F(AppStateTest, SaysWhatItIsDoing) {
    EXPECT_EQ(state_->statusText(), "Idle");
    state_->clickCount = 12;
    EXPECT_EQ(state_->statusText(), "Idle");
    state_->status = ClickStatus::pickingZone;
    EXPECT_EQ(state_->statusText(), "Picking zone...");
    state_->status = ClickStatus::running;
    EXPECT_EQ(state_->statusText(), "Running (12 clicks)");
    state_->clickCount = 1;
    EXPECT_EQ(state_->statusText(), "Running (1 clicks)");
    state_->clickCount = 0;
    EXPECT_EQ(state_->statusText(), "Running");
}

TEST_F(AppStateTest, OnlyTheWordOfTheStatusIsTranslated) {
    useTextLookup([](std::string_view english) { return "<" + std::string(english) + ">"; });
    state_->status = ClickStatus::running;
    state_->clickCount = 12;
    EXPECT_EQ(state_->statusText(), "<Running> (12 clicks)");
    useTextLookup({});
}

TEST_F(AppStateTest, LoadsTheConfigurationInTheBackground) {
    files().put(configFile, *encodeConfig(anchored));
    loadConfig();
    EXPECT_EQ(state_->config, anchored);
    EXPECT_EQ(output_.lines(), Lines{"[Corvane] Loaded config from " + configFile.string()});
}

TEST_F(AppStateTest, AFailingConfigLoadLeavesTheConfigurationAndPrintsOneLine) {
    files().put(configFile, "[]");
    state_->config.clickRate = 3;
    loadConfig();
    EXPECT_EQ(state_->config, CorvaneConfig{.clickRate = 3});
    EXPECT_EQ(output_.lines(), Lines{"[Corvane] Failed to load config: not an object"});
}

TEST_F(AppStateTest, LoadsTheProfilesAndTheActiveOne) {
    const Profile profile = Profile::fromConfig("Work", anchored);
    files().put(profilesFile,
                *encodeProfileStore({.profiles = {profile}, .activeProfileID = profile.id}));
    loadProfiles();
    EXPECT_EQ(state_->profiles, std::vector{profile});
    EXPECT_EQ(state_->activeProfileID, profile.id);
}

TEST_F(AppStateTest, KeepsALoadedActiveIdThatMatchesNoProfile) {
    const Uuid unknown = Uuid::random();
    files().put(profilesFile, *encodeProfileStore({.activeProfileID = unknown}));
    loadProfiles();
    EXPECT_EQ(state_->activeProfileID, unknown);
}

TEST_F(AppStateTest, AFailingProfileLoadLeavesTheProfilesAndPrintsOneLine) {
    const Profile profile = Profile::fromConfig("Work", {});
    state_->profiles = {profile};
    state_->activeProfileID = profile.id;
    files().setFaults({.read = Failure{"unreadable"}});
    files().put(profilesFile, "{}");
    loadProfiles();
    EXPECT_EQ(state_->profiles, std::vector{profile});
    EXPECT_EQ(state_->activeProfileID, profile.id);
    EXPECT_EQ(output_.lines(), Lines{"[Corvane] Failed to load profiles: unreadable"});
}

TEST_F(AppStateTest, ASaveWritesWhatWasTrueWhenItWasAskedFor) {
    std::promise<void> goOn;
    storeQueue_.post([&goOn] { goOn.get_future().wait(); });
    state_->config.clickRate = 2;
    state_->saveConfig();
    state_->config.clickRate = 3;
    state_->saveProfiles();
    state_->profiles.push_back(Profile::fromConfig("Later", {}));
    EXPECT_TRUE(files().writes().empty());
    goOn.set_value();
    EXPECT_EQ(savedConfig().clickRate, 2);
    EXPECT_TRUE(savedProfiles().profiles.empty());
}

TEST_F(AppStateTest, SavesAreDoneOneAfterTheOther) {
    for (std::int64_t rate = 1; rate <= 100; ++rate) {
        state_->config.clickRate = rate;
        state_->saveConfig();
    }
    EXPECT_EQ(savedConfig().clickRate, 100);
    EXPECT_EQ(writes().size(), 100U);
}

TEST_F(AppStateTest, AFailingSaveLeavesTheStateAndIsNotRetried) {
    files().setFaults({.write = Failure{"disk full"}});
    state_->config.clickRate = 9;
    state_->saveConfig();
    state_->saveCurrentAsProfile("Work");
    EXPECT_EQ(writes(), (std::vector{configFile, profilesFile}));
    EXPECT_EQ(state_->config.clickRate, 9);
    EXPECT_EQ(state_->profiles.size(), 1U);
    EXPECT_EQ(output_.lines(), (Lines{"[Corvane] Failed to save config: disk full",
                                      "[Corvane] Failed to save profiles: disk full"}));
    files().setFaults({});
    platform_.mainQueue().turnUntilIdle();
    EXPECT_EQ(writes().size(), 2U);
}

TEST_F(AppStateTest, ALoadThatEndsAfterTheStateIsDropped) {
    std::promise<void> goOn;
    storeQueue_.post([&goOn] { goOn.get_future().wait(); });
    bool isDone = false;
    state_->loadConfig([&isDone] { isDone = true; });
    state_->loadProfiles([&isDone] { isDone = true; });
    state_.reset();
    goOn.set_value();
    storeQueue_.drain();
    platform_.mainQueue().turnUntilIdle();
    EXPECT_FALSE(isDone);
}

TEST_F(AppStateTest, ApplyingAProfileTakesAllItsSettingsAndSavesBothFiles) {
    const Profile profile = Profile::fromConfig("Work", anchored);
    state_->profiles = {profile};
    state_->status = ClickStatus::running;
    state_->applyProfile(profile);
    EXPECT_EQ(state_->config, anchored);
    EXPECT_EQ(state_->activeProfileID, profile.id);
    EXPECT_EQ(state_->status, ClickStatus::running);
    EXPECT_EQ(writes(), (std::vector{configFile, profilesFile}));
    EXPECT_EQ(savedConfig(), anchored);
    EXPECT_EQ(savedProfiles().activeProfileID, profile.id);
}

TEST_F(AppStateTest, AProfileOfTheListCanBeApplied) {
    state_->profiles = {Profile::fromConfig("Work", anchored)};
    state_->applyProfile(state_->profiles.front());
    EXPECT_EQ(state_->config, anchored);
}

TEST_F(AppStateTest, SavingAsAProfileAppendsItAndMakesItTheActiveOne) {
    state_->saveCurrentAsProfile("Work");
    state_->config = anchored;
    state_->saveCurrentAsProfile("Work");
    ASSERT_EQ(state_->profiles.size(), 2U);
    EXPECT_EQ(state_->profiles[0].config, CorvaneConfig{});
    EXPECT_EQ(state_->profiles[1].name, "Work");
    EXPECT_EQ(state_->profiles[1].config, anchored);
    EXPECT_NE(state_->profiles[0].id, state_->profiles[1].id);
    EXPECT_EQ(state_->activeProfileID, state_->profiles[1].id);
    EXPECT_EQ(writes(), (std::vector{profilesFile, profilesFile}));
    EXPECT_EQ(savedProfiles().profiles, state_->profiles);
    EXPECT_EQ(savedProfiles().activeProfileID, state_->activeProfileID);
}

TEST_F(AppStateTest, RenamingKeepsTheIdAndSaves) {
    const Profile first = Profile::fromConfig("Work", {});
    const Profile second = Profile::fromConfig("Play", {});
    state_->profiles = {first, second};
    state_->renameProfile(second.id, "Games");
    EXPECT_EQ(state_->profiles[0].name, "Work");
    EXPECT_EQ(state_->profiles[1], (Profile{second.id, "Games", {}}));
    EXPECT_EQ(savedProfiles().profiles, state_->profiles);
}

TEST_F(AppStateTest, RenamingTouchesOnlyTheFirstOfThatId) {
    const Profile profile = Profile::fromConfig("Work", {});
    state_->profiles = {profile, profile};
    state_->renameProfile(profile.id, "Games");
    EXPECT_EQ(state_->profiles[0].name, "Games");
    EXPECT_EQ(state_->profiles[1].name, "Work");
}

TEST_F(AppStateTest, RenamingAnUnknownIdChangesAndSavesNothing) {
    const Profile profile = Profile::fromConfig("Work", {});
    state_->profiles = {profile};
    state_->renameProfile(Uuid::random(), "Games");
    EXPECT_EQ(state_->profiles, std::vector{profile});
    EXPECT_TRUE(writes().empty());
}

TEST_F(AppStateTest, DeletingTheActiveProfileClearsTheActiveId) {
    const Profile profile = Profile::fromConfig("Work", {});
    state_->profiles = {profile, Profile::fromConfig("Play", {}), profile};
    state_->activeProfileID = profile.id;
    state_->deleteProfile(profile.id);
    ASSERT_EQ(state_->profiles.size(), 1U);
    EXPECT_EQ(state_->profiles[0].name, "Play");
    EXPECT_EQ(state_->activeProfileID, std::nullopt);
    EXPECT_EQ(savedProfiles().profiles, state_->profiles);
    EXPECT_EQ(savedProfiles().activeProfileID, std::nullopt);
}

TEST_F(AppStateTest, DeletingAnotherProfileLeavesTheActiveId) {
    const Profile first = Profile::fromConfig("Work", {});
    const Profile second = Profile::fromConfig("Play", {});
    state_->profiles = {first, second};
    state_->activeProfileID = first.id;
    state_->deleteProfile(second.id);
    EXPECT_EQ(state_->profiles, std::vector{first});
    EXPECT_EQ(state_->activeProfileID, first.id);
}

TEST_F(AppStateTest, AProfileOfTheListCanBeDeletedByItsOwnId) {
    state_->profiles = {Profile::fromConfig("Work", {}), Profile::fromConfig("Play", {})};
    state_->activeProfileID = state_->profiles[0].id;
    state_->deleteProfile(state_->profiles[0].id);
    EXPECT_EQ(state_->profiles.size(), 1U);
    EXPECT_EQ(state_->activeProfileID, std::nullopt);
}

TEST_F(AppStateTest, DeletingAnUnknownIdStillRewritesTheFile) {
    const Profile profile = Profile::fromConfig("Work", {});
    state_->profiles = {profile};
    state_->deleteProfile(Uuid::random());
    EXPECT_EQ(state_->profiles, std::vector{profile});
    EXPECT_EQ(writes(), std::vector{profilesFile});
    EXPECT_EQ(savedProfiles().profiles, std::vector{profile});
}

} // namespace
} // namespace corvane
