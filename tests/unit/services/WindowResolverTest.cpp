#include "services/WindowResolver.h"

#include "platform/Accessibility.h"
#include "support/LineCapture.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <random>

namespace corvane {
namespace {

using Lines = std::vector<std::string>;
using platform::WindowListEntry;

constexpr std::int32_t editorProcess = 7;
constexpr std::int32_t browserProcess = 8;
constexpr std::int32_t ownProcess = 9;
constexpr std::int32_t namelessProcess = 10;

class WindowResolverTest : public ::testing::Test {
  protected:
    WindowResolverTest() {
        platform.applications().runningApplications = {{editorProcess, "org.example.editor"},
                                                       {browserProcess, "org.example.browser"},
                                                       {ownProcess, "org.example.corvane"},
                                                       {namelessProcess, std::nullopt}};
    }

    /// Whose window is found under a zone with its centre at (230, 300).
    std::string detectedUnderZone(std::vector<WindowListEntry> windows) {
        platform.windowList().windows = std::move(windows);
        const auto detected = resolver.detectWindow(zone);
        return detected ? detected->bundleID : "none";
    }

    static WindowListEntry window(std::int32_t process) {
        return {.bounds = Rectangle{100, 200, 800, 600},
                .ownerProcessIdentifier = process,
                .name = "Untitled",
                .layer = 0};
    }

    void setWindows(std::vector<testing::FakeWindow> windows) {
        platform.accessibility().windowsByProcess[editorProcess] = std::move(windows);
    }

    static testing::FakeWindow titled(std::string title) {
        return {.title = std::move(title), .position = Point{100, 200}, .size = Size{800, 600}};
    }

    const Rectangle zone{130, 260, 200, 80};
    const WindowAnchor anchor{"org.example.editor", "Report", {30, 60, 200, 80}};
    testing::LogCapture log;
    testing::RecordingPlatform platform;
    WindowResolver resolver{platform.windowList(), platform.applications(),
                            platform.accessibility()};
};

TEST_F(WindowResolverTest, DetectsTheWindowUnderTheCentreAndTheOffset) {
    platform.windowList().windows = {window(editorProcess)};
    const WindowAnchor expected{"org.example.editor", "Untitled", {30, 60, 200, 80}};
    EXPECT_EQ(resolver.detectWindow(zone), expected);
    EXPECT_EQ(log.lines(),
              Lines{"WindowResolver: detected org.example.editor 'Untitled' under zone center"});
}

TEST_F(WindowResolverTest, TheFrontMostWindowWins) {
    EXPECT_EQ(detectedUnderZone({window(browserProcess), window(editorProcess)}),
              "org.example.browser");
}

TEST_F(WindowResolverTest, OwnWindowsAndOtherLayersAreLookedThrough) {
    WindowListEntry panel = window(browserProcess);
    panel.layer = 25;
    EXPECT_EQ(detectedUnderZone({window(ownProcess), panel, window(editorProcess)}),
              "org.example.editor");
    EXPECT_EQ(detectedUnderZone({window(ownProcess), panel}), "none");
}

TEST_F(WindowResolverTest, AMissingLayerCountsAsNormal) {
    WindowListEntry plain = window(editorProcess);
    plain.layer.reset();
    EXPECT_EQ(detectedUnderZone({plain}), "org.example.editor");
}

TEST_F(WindowResolverTest, WindowsThatSayTooLittleAreSkipped) {
    WindowListEntry withoutBounds = window(browserProcess);
    withoutBounds.bounds.reset();
    WindowListEntry withoutOwner = window(browserProcess);
    withoutOwner.ownerProcessIdentifier.reset();
    const WindowListEntry ofNoApplication = window(4711);
    EXPECT_EQ(detectedUnderZone({withoutBounds, withoutOwner, ofNoApplication,
                                 window(namelessProcess), window(editorProcess)}),
              "org.example.editor");
}

TEST_F(WindowResolverTest, TheCentreDecidesWithTheMaximumEdgesOutside) {
    WindowListEntry endsAtCentre = window(browserProcess);
    endsAtCentre.bounds = Rectangle{0, 0, 230, 1000};
    WindowListEntry beginsAtCentre = window(editorProcess);
    beginsAtCentre.bounds = Rectangle{230, 300, 10, 10};
    EXPECT_EQ(detectedUnderZone({endsAtCentre, beginsAtCentre}), "org.example.editor");
}

TEST_F(WindowResolverTest, AWindowWithoutATitleIsAnchoredByAnEmptyOne) {
    WindowListEntry untitled = window(editorProcess);
    untitled.name.reset();
    platform.windowList().windows = {untitled};
    EXPECT_EQ(resolver.detectWindow(zone)->windowTitle, "");
    EXPECT_EQ(log.lines(),
              Lines{"WindowResolver: detected org.example.editor '' under zone center"});
}

TEST_F(WindowResolverTest, NothingUnderTheZoneIsNotLogged) {
    EXPECT_EQ(detectedUnderZone({}), "none");
    platform.windowList().windows.reset();
    EXPECT_FALSE(resolver.detectWindow(zone));
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(WindowResolverTest, ResolvesTheZoneOnItsWindow) {
    setWindows({titled("Report")});
    const ResolvedAnchor expected{{100, 200, 800, 600}, {130, 260, 200, 80}};
    EXPECT_EQ(resolver.resolve(anchor), expected);
    EXPECT_EQ(log.lines(), Lines{"WindowResolver: resolved to (130.0, 260.0, 200.0, 80.0) "
                                 "(window at (100.0, 200.0, 800.0, 600.0))"});
}

TEST_F(WindowResolverTest, TheZoneMovesWithTheWindowsCornerAndKeepsItsSize) {
    setWindows({{.title = "Report", .position = Point{400, 50}, .size = Size{10, 10}}});
    EXPECT_EQ(resolver.resolve(anchor)->zone, (Rectangle{430, 110, 200, 80}));
}

TEST_F(WindowResolverTest, AZoneDetectedOnAWindowIsFoundAgainWhereverTheWindowGoes) {
    std::mt19937 random(1);
    // Halves of points, so that no sum is rounded.
    std::uniform_int_distribution<int> halves(-8000, 8000);
    const auto coordinate = [&] { return halves(random) / 2.0; };
    const auto length = [&] { return 1 + std::abs(halves(random)) / 2.0; };
    for (int round = 0; round < 200; ++round) {
        WindowListEntry entry = window(editorProcess);
        entry.bounds = Rectangle{coordinate(), coordinate(), length(), length()};
        const Rectangle drawn{entry.bounds->midX() - 5, entry.bounds->midY() - 7, 10, 14};
        platform.windowList().windows = {entry};
        const auto detected = resolver.detectWindow(drawn);
        ASSERT_TRUE(detected);

        const Point moved{coordinate(), coordinate()};
        setWindows({{.title = entry.name, .position = moved, .size = Size{length(), length()}}});
        const Rectangle expected{drawn.x + moved.x - entry.bounds->x,
                                 drawn.y + moved.y - entry.bounds->y, 10, 14};
        EXPECT_EQ(resolver.resolve(*detected)->zone, expected);
    }
}

TEST_F(WindowResolverTest, TitlesAreComparedByteForByte) {
    setWindows({titled("Überblick – Bericht")});
    WindowAnchor report = anchor;
    report.windowTitle = "Bericht";
    EXPECT_TRUE(resolver.resolve(report));
    report.windowTitle = "bericht";
    EXPECT_FALSE(resolver.resolve(report));
    report.windowTitle = "Bericht – Überblick";
    EXPECT_FALSE(resolver.resolve(report));
}

TEST_F(WindowResolverTest, ATitleThatHasGrownStillMatches) {
    setWindows({titled("report"), titled("My Report (edited)")});
    platform.accessibility().windowsByProcess[editorProcess].back().position = Point{0, 0};
    EXPECT_EQ(resolver.resolve(anchor)->windowFrame, (Rectangle{0, 0, 800, 600}));
}

TEST_F(WindowResolverTest, AnEmptyTitleTakesTheFirstWindowWithAFrame) {
    WindowAnchor any = anchor;
    any.windowTitle = "";
    setWindows({{.title = "No frame"}, {.position = Point{5, 6}, .size = Size{7, 8}}});
    EXPECT_EQ(resolver.resolve(any)->windowFrame, (Rectangle{5, 6, 7, 8}));
}

TEST_F(WindowResolverTest, AMatchingWindowWithoutAFrameIsPassedOver) {
    setWindows({{.title = "Report", .position = Point{1, 1}},
                {.title = "Report", .size = Size{1, 1}},
                titled("Report")});
    EXPECT_EQ(resolver.resolve(anchor)->windowFrame, (Rectangle{100, 200, 800, 600}));
}

TEST_F(WindowResolverTest, OnlyTheFirstInstanceCounts) {
    platform.applications().runningApplications.push_back({99, "org.example.editor"});
    platform.accessibility().windowsByProcess[99] = {titled("Report")};
    setWindows({titled("Other")});
    EXPECT_FALSE(resolver.resolve(anchor));
}

TEST_F(WindowResolverTest, AnApplicationThatDoesNotRunIsLogged) {
    platform.applications().runningApplications.clear();
    EXPECT_FALSE(resolver.resolve(anchor));
    EXPECT_EQ(log.lines(), Lines{"WindowResolver: no running app for org.example.editor"});
}

TEST_F(WindowResolverTest, WindowsThatCannotBeReadAreLogged) {
    EXPECT_FALSE(resolver.resolve(anchor));
    EXPECT_EQ(log.lines(), Lines{"WindowResolver: cannot get windows for org.example.editor"});
}

TEST_F(WindowResolverTest, WithoutAMatchingWindowTheTitleIsLogged) {
    for (const std::vector<testing::FakeWindow> &windows :
         {std::vector<testing::FakeWindow>{}, {{.title = "Report"}}, {titled("Other")}}) {
        setWindows(windows);
        EXPECT_FALSE(resolver.resolve(anchor));
    }
    EXPECT_EQ(log.lines(), Lines(3, "WindowResolver: no matching window titled 'Report'"));
}

} // namespace
} // namespace corvane
