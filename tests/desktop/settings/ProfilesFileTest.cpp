#include "DesktopTest.h"
#include "harness/ProfilesText.h"
#include "harness/TextFile.h"
#include "harness/actors/StatusPanel.h"

#include <gmock/gmock.h>

#include <csignal>

namespace corvane::desktop {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// What the program makes of the profiles file it finds.
class ProfilesFileTest : public DesktopTest {
  protected:
    void writeProfiles(const std::string &text) const { writeFile(profilesFile(desktop_), text); }

    std::string readProfiles() const { return readFile(profilesFile(desktop_)); }

    /// Ends the program and waits until all is saved.
    static void end(CorvaneProcess &corvane) {
        corvane.process().signal(SIGTERM);
        EXPECT_EQ(corvane.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane.story();
    }

    StatusPanel panel_{desktop_};
};

/// The lines of the output that say that something failed.
std::vector<std::string> failures(const std::string &output) {
    std::vector<std::string> lines = wholeLines(output);
    std::erase_if(lines, [](const std::string &line) {
        return !line.starts_with("[Corvane] Failed to load profiles: ");
    });
    return lines;
}

constexpr const char *goodProfile =
    R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"Good","clickMode":"cursor",)"
    R"("clickRate":5,"timeUnit":"s","maxClicks":0})";

/// A file with a good profile, and another one whose members are these.
std::string fileWith(const std::string &members) {
    return std::string("{\"profiles\":[") + goodProfile + ",{" + members + "}]}";
}

struct Damage {
    std::string content;
    /// What the failure line says.
    std::string reason;
};

constexpr const char *id = R"("id":"7C9E6679-7425-40DE-944B-E07FC1F90AE7")";
constexpr const char *settings = R"("clickMode":"zone","clickRate":5,"timeUnit":"s","maxClicks":0)";

std::string named(const std::string &members) {
    return std::string(id) + R"(,"name":"Bad",)" + members;
}

std::vector<Damage> damages() {
    const std::string whole = named(settings);
    return {
        {"", "not valid JSON"},
        {"\xff\xfe not text", "not valid JSON"},
        {std::string(R"({"profiles":[)") + goodProfile, "not valid JSON"},
        {"[]", "not an object"},
        {"{}", "profiles: missing"},
        {R"({"profiles":null})", "profiles: missing"},
        {R"({"profiles":{}})", "profiles: not a list"},
        {std::string(R"({"profiles":[)") + goodProfile + R"(],"activeProfileID":"Good"})",
         "activeProfileID: not a known value"},
        {fileWith(""), "number 2: id: missing"},
        {fileWith(std::string(R"("id":"1","name":"Bad",)") + settings),
         "number 2: id: not a known value"},
        {fileWith(std::string(id) + "," + settings), "number 2: name: missing"},
        {fileWith(std::string(id) + R"(,"name":null,)" + settings), "number 2: name: missing"},
        {fileWith(named(R"("clickRate":5,"timeUnit":"s","maxClicks":0)")),
         "number 2: clickMode: missing"},
        {fileWith(named(R"("clickMode":"left","clickRate":5,"timeUnit":"s","maxClicks":0)")),
         "number 2: clickMode: not a known value"},
        {fileWith(named(R"("clickMode":"zone","timeUnit":"s","maxClicks":0)")),
         "number 2: clickRate: missing"},
        {fileWith(named(R"("clickMode":"zone","clickRate":1.5,"timeUnit":"s","maxClicks":0)")),
         "number 2: clickRate: not a whole number of 64 bits"},
        {fileWith(named(R"("clickMode":"zone","clickRate":5,"maxClicks":0)")),
         "number 2: timeUnit: missing"},
        {fileWith(named(R"("clickMode":"zone","clickRate":5,"timeUnit":"seconds","maxClicks":0)")),
         "number 2: timeUnit: not a known value"},
        {fileWith(named(R"("clickMode":"zone","clickRate":5,"timeUnit":"s")")),
         "number 2: maxClicks: missing"},
        {fileWith(named(R"("clickMode":"zone","clickRate":5,"timeUnit":"s","maxClicks":"0")")),
         "number 2: maxClicks: not a whole number of 64 bits"},
        {fileWith(whole + R"(,"zoneRect":{"x":1,"y":2,"width":3})"),
         "number 2: zoneRect: height: missing"},
        {fileWith(whole + R"(,"zoneRect":{"x":1,"y":2,"width":3,"height":"4"})"),
         "number 2: zoneRect: height: not a number"},
        {fileWith(whole + R"(,"windowAnchor":{"bundleID":"a","windowTitle":"b"})"),
         "number 2: windowAnchor: relativeRect: missing"},
        {fileWith(whole + R"(,"windowAnchor":{"bundleID":"a","windowTitle":1,)"
                          R"("relativeRect":{"x":1,"y":2,"width":3,"height":4}})"),
         "number 2: windowAnchor: windowTitle: not a text"}};
}

TEST_F(ProfilesFileTest, ADamagedFileFailsAsAWholeAndStaysAsItIs) {
    for (const Damage &damage : damages()) {
        SCOPED_TRACE(damage.content);
        writeProfiles(damage.content);
        const auto corvane = start({});
        ASSERT_THAT(failures(corvane->standardOutput()), ElementsAre(HasSubstr(damage.reason)))
            << corvane->story();
        EXPECT_THAT(corvane->log(), Not(Contains(HasSubstr("profiles from"))));
        end(*corvane);
        EXPECT_EQ(readProfiles(), damage.content);
    }
}

TEST_F(ProfilesFileTest, WithoutProfilesThatCanBeReadTheMenuHasNone) {
    writeProfiles(fileWith(""));
    const auto corvane = start({});
    ASSERT_TRUE(panel_.waitForItem());
    EXPECT_TRUE(waitUntil([this] { return panel_.line("No profiles").has_value(); }));
    EXPECT_EQ(panel_.line("Good"), std::nullopt);
}

TEST_F(ProfilesFileTest, AFolderInItsPlaceFailsTheLoad) {
    std::filesystem::create_directories(profilesFile(desktop_));
    const auto corvane = start({});
    EXPECT_EQ(failures(corvane->standardOutput()).size(), 1) << corvane->story();
    end(*corvane);
    EXPECT_TRUE(std::filesystem::is_directory(profilesFile(desktop_)));
}

TEST_F(ProfilesFileTest, WhatTheFormatAllowsIsRead) {
    writeProfiles(R"({"future":[1],"activeProfileID":null,"profiles":[)"
                  R"({"id":"0f8fad5b-d9cb-469f-a165-70867728950e","name":"","clickMode":"cursor",)"
                  R"("clickRate":5,"timeUnit":"s","maxClicks":0,"zoneRect":null,)"
                  R"("windowAnchor":null,"colour":"blue"}]})");
    const auto corvane = start({});
    EXPECT_TRUE(failures(corvane->standardOutput()).empty()) << corvane->story();
    EXPECT_EQ(corvane->logCount("Loaded 1 profiles from " + profilesFile(desktop_).string()), 1);
}

TEST_F(ProfilesFileTest, AZoneOfAnySizeIsReadAndCostsNoOtherProfile) {
    writeProfiles(fileWith(std::string(id) + R"(,"name":"Wide",)" + settings +
                           R"(,"zoneRect":{"x":-1e39,"y":-1e39,"width":1e40,"height":2e39})"));
    const auto corvane = start({});
    EXPECT_EQ(corvane->logCount("Loaded 2 profiles from " + profilesFile(desktop_).string()), 1)
        << corvane->story();
    ASSERT_TRUE(panel_.waitForItem());
    EXPECT_TRUE(waitUntil([this] { return panel_.line("Good").has_value(); }));
    ASSERT_TRUE(panel_.choose("Wide"));
    EXPECT_TRUE(waitUntil([this] { return panel_.line("Defined Zone (1e+40×2e+39)").has_value(); }))
        << corvane->story();
    keyboard_.pressHotKey();
    EXPECT_TRUE(waitForMoreClicks(2)) << corvane->story();
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

TEST_F(ProfilesFileTest, VeryManyOddNamesAreInTheMenuAndSurviveBeingSaved) {
    const auto profiles = manyOddProfiles();
    writeProfiles(profilesText(profiles));
    auto corvane = start({.clickRate = 777});
    EXPECT_EQ(corvane->logCount("Loaded 500 profiles from " + profilesFile(desktop_).string()), 1)
        << corvane->story();
    ASSERT_TRUE(panel_.waitForItem());
    ASSERT_TRUE(waitUntil([this] { return panel_.menu().size() > 500; })) << corvane->story();
    const auto menu = panel_.menu();
    const auto titles = std::ranges::count(menu, 1, &MenuLine::depth);
    // With the separator and the line for saving.
    EXPECT_EQ(titles, 502);

    // The last of these names is loaded, and with it everything is written anew.
    ASSERT_TRUE(panel_.choose("<b>\"\\</b> 100% /"));
    ASSERT_TRUE(waitUntil([this] { return panel_.line("Rate: 10/s — unlimited").has_value(); }));
    const std::string saved = profilesText(profiles, profiles.at(9).id);
    EXPECT_TRUE(waitUntil([&] { return readProfiles() == saved; }));
    end(*corvane);

    corvane = start({});
    ASSERT_TRUE(panel_.choose("Settings..."));
    end(*corvane);
    EXPECT_EQ(readProfiles(), saved);
}

} // namespace

} // namespace corvane::desktop
