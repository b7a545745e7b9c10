#include "DesktopTest.h"
#include "harness/StatusPanel.h"
#include "harness/TextFile.h"

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

TEST_F(SettingsFilesTest, theFirstStartWritesTheDefaults) {
    const auto corvane = startWith({});
    EXPECT_EQ(corvane->standardOutput(),
              "[Corvane] Created default config at " + settingsFile(desktop_).string() + "\n");
    EXPECT_EQ(readFile(settingsFile(desktop_)), defaultSettings);
    EXPECT_TRUE(runs(*corvane, defaultRun)) << corvane->story();
}

TEST_F(SettingsFilesTest, damagedSettingsStayAsTheyAreAndTheDefaultsHold) {
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

TEST_F(SettingsFilesTest, damagedProfilesStayAsTheyAre) {
    writeFile(profilesFile(desktop_), "{ \"profiles\" : 3 }");
    const auto corvane = startWith({});
    EXPECT_THAT(corvane->standardOutput(), HasSubstr("[Corvane] Failed to load profiles: "));
    EXPECT_EQ(readFile(profilesFile(desktop_)), "{ \"profiles\" : 3 }");
    EXPECT_TRUE(runs(*corvane, defaultRun)) << corvane->story();
}

TEST_F(SettingsFilesTest, withoutHomeThePasswordDatabaseSaysWhereTheFilesAre) {
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

TEST_F(SettingsFilesTest, anUnwritableHomeCostsTheFilesOnly) {
    CorvaneProcess::Options options;
    options.mounts.makeReadOnly(desktop_.home());
    const auto corvane = startWith(std::move(options));
    EXPECT_THAT(corvane->standardOutput(), StartsWith("[Corvane] Failed to load config: "));
    EXPECT_FALSE(std::filesystem::exists(settingsFile(desktop_)));
    EXPECT_TRUE(runs(*corvane, defaultRun)) << corvane->story();
}

/// A home directory with room for one file.
class FullHomeTest : public SettingsFilesTest {
  protected:
    /// What the program finds in the place of that file.
    std::string seenByProgram(CorvaneProcess &corvane, const std::filesystem::path &file) {
        return readFile("/proc/" + std::to_string(corvane.process().pid()) + "/root" +
                        file.string());
    }

    StatusPanel panel_{desktop_};
};

TEST_F(FullHomeTest, aFailedSaveSaysSoAndLeavesTheOldFileWhole) {
    CorvaneProcess::Options options;
    const auto pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    options.mounts.putSmallFileSystem(desktop_.home(), pageSize);
    const auto corvane = startWith(std::move(options));
    ASSERT_EQ(seenByProgram(*corvane, settingsFile(desktop_)), defaultSettings) << corvane->story();
    ASSERT_TRUE(panel_.waitForItem());
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    ASSERT_TRUE(waitUntil([&] {
        return corvane->standardOutput().find("[Corvane] Failed to save config: ") !=
               std::string::npos;
    })) << corvane->story();
    EXPECT_EQ(seenByProgram(*corvane, settingsFile(desktop_)), defaultSettings);
    EXPECT_TRUE(panel_.line("Define zone...").has_value());
    EXPECT_TRUE(runs(*corvane, "Starting clicker: mode=zone interval=1.0s maxClicks=0"))
        << corvane->story();
}

} // namespace

} // namespace corvane::desktop
