#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/actors/StatusPanel.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char *defaultSettings = "{\n"
                                        "  \"clickMode\" : \"cursor\",\n"
                                        "  \"clickRate\" : 1,\n"
                                        "  \"maxClicks\" : 0,\n"
                                        "  \"timeUnit\" : \"s\"\n"
                                        "}";
constexpr const char *defaultRun = "Starting clicker: mode=cursor interval=1.0s maxClicks=0";

class SettingsFilesTest : public DesktopTest {
  protected:
    std::unique_ptr<CorvaneProcess> startWith(CorvaneProcess::Options options) {
        auto corvane = std::make_unique<CorvaneProcess>(desktop_, std::move(options));
        EXPECT_TRUE(corvane->waitUntilReady()) << corvane->story();
        return corvane;
    }

    /// Whether a run starts, as the line in the log says.
    bool runs(CorvaneProcess &corvane, std::string_view line) {
        keyboard_.pressHotKey();
        return corvane.waitForLog(line) && waitForMoreClicks(1);
    }
};

TEST_F(SettingsFilesTest, TheFirstStartWritesTheDefaults) {
    const auto corvane = startWith({});
    EXPECT_EQ(corvane->standardOutput(),
              "[Corvane] Created default config at " + settingsFile(desktop_).string() + "\n");
    EXPECT_EQ(readFile(settingsFile(desktop_)), defaultSettings);
    EXPECT_TRUE(runs(*corvane, defaultRun)) << corvane->story();
}

TEST_F(SettingsFilesTest, DamagedSettingsStayAsTheyAreAndTheDefaultsHold) {
    for (const std::string damaged : {"", "[]", "{\"clickRate\": 7", "\xff\xfe not text"}) {
        writeSettings(desktop_, damaged);
        const auto corvane = startWith({});
        EXPECT_THAT(corvane->standardOutput(), StartsWith("[Corvane] Failed to load config: "));
        EXPECT_EQ(wholeLines(corvane->standardOutput()).size(), 1) << corvane->story();
        EXPECT_TRUE(runs(*corvane, defaultRun)) << corvane->story();
        corvane->process().signal(SIGTERM);
        EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0}));
        EXPECT_EQ(readFile(settingsFile(desktop_)), damaged);
    }
}

TEST_F(SettingsFilesTest, AFolderInTheWayOfTheBackupCostsNoSave) {
    StatusPanel panel(desktop_);
    const auto corvane = startWith({});
    ASSERT_TRUE(panel.waitForItem()) << corvane->story();
    std::filesystem::create_directory(settingsFile(desktop_).string() + "~");
    writeSettings(desktop_, "what another program wrote");
    ASSERT_TRUE(panel.choose("Defined Zone"));
    EXPECT_TRUE(waitUntil([this] {
        return readFile(settingsFile(desktop_)).find("\"clickMode\" : \"zone\"") !=
               std::string::npos;
    })) << corvane->story();
    EXPECT_TRUE(corvane->waitForLogBeginning(
        "Not kept before it is replaced: " + settingsFile(desktop_).string() + ": "))
        << corvane->story();
}

TEST_F(SettingsFilesTest, DamagedProfilesStayAsTheyAre) {
    writeFile(profilesFile(desktop_), "{ \"profiles\" : 3 }");
    const auto corvane = startWith({});
    EXPECT_THAT(corvane->standardOutput(), HasSubstr("[Corvane] Failed to load profiles: "));
    EXPECT_EQ(readFile(profilesFile(desktop_)), "{ \"profiles\" : 3 }");
    EXPECT_TRUE(runs(*corvane, defaultRun)) << corvane->story();
}

TEST_F(SettingsFilesTest, WithoutHomeThePasswordDatabaseSaysWhereTheFilesAre) {
    const std::filesystem::path passwords = desktop_.folder() / "passwd";
    writeFile(passwords, "someone:x:" + std::to_string(getuid()) + ":" + std::to_string(getgid()) +
                             "::" + desktop_.home().string() + ":/bin/sh\n");
    CorvaneProcess::Options options{.withoutVariables = {"HOME"}};
    options.mounts.replace("/etc/passwd", passwords);
    const auto corvane = startWith(std::move(options));
    EXPECT_EQ(corvane->standardOutput(),
              "[Corvane] Created default config at " + settingsFile(desktop_).string() + "\n");
    EXPECT_EQ(readFile(settingsFile(desktop_)), defaultSettings);
}

TEST_F(SettingsFilesTest, AnUnwritableHomeCostsTheFilesOnly) {
    CorvaneProcess::Options options;
    options.mounts.makeReadOnly(desktop_.home());
    const auto corvane = startWith(std::move(options));
    EXPECT_THAT(corvane->standardOutput(), StartsWith("[Corvane] Failed to load config: "));
    EXPECT_FALSE(std::filesystem::exists(settingsFile(desktop_)));
    EXPECT_TRUE(runs(*corvane, defaultRun)) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
