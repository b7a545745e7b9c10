#include "services/ZonePickerService.h"

#include "overlay/OverlayWindow.h"
#include "support/LineCapture.h"
#include "support/Localised.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

constexpr platform::Screen primaryScreen{.frame = {0, 0, 1920, 1080}};
constexpr platform::Screen secondScreen{.frame = {1920, 56, 1280, 1024}};

class ZonePickerServiceTest : public ::testing::Test {
  protected:
    void pick() {
        service->pick([this](const auto &result) { answers.push_back(result); });
    }

    std::shared_ptr<testing::RecordedOverlay> overlay(std::size_t index = 0) {
        return platform.overlayWindows().all().at(index);
    }

    void drag(Point from, Point to) {
        const auto first = overlay();
        first->mouseDown(from);
        first->mouseDragged(to);
        first->mouseUp(to);
    }

    void putWindowUnderZone() {
        platform.applications().runningApplications = {{7, "org.example.editor"}};
        platform.applications().names = {{"org.example.editor", "Editor"}};
        platform.windowList().windows = {{{.bounds = Rectangle{0, 0, 1920, 1080},
                                           .ownerProcessIdentifier = 7,
                                           .name = "Report"}}};
    }

    /// The rectangle drawn on an overlay, in its own coordinates.
    static std::optional<Rectangle> selectionOn(const testing::RecordedOverlay &shown) {
        return shown.drawing.empty()
                   ? std::nullopt
                   : std::optional(std::get<Shape>(shown.drawing.front()).path.bounds);
    }

    testing::LogCapture log;
    testing::RecordingPlatform platform;
    std::unique_ptr<ZonePickerService> service = std::make_unique<ZonePickerService>(
        platform.screens(), platform.overlayWindows(), platform.alerts(), platform.applications(),
        platform.application(),
        WindowResolver(platform.windowList(), platform.applications(), platform.accessibility()));
    std::vector<std::optional<ZonePickResult>> answers;
};

TEST_F(ZonePickerServiceTest, EveryScreenIsCoveredAndTheProgramComesToTheFront) {
    platform.screens().list = {primaryScreen, secondScreen};
    pick();
    ASSERT_EQ(platform.overlayWindows().visible().size(), 2U);
    const BorderlessWindow expected{.frame = {1920, 56, 1280, 1024},
                                    .level = 1000,
                                    .background = {ColourName::black, 0.3},
                                    .ignoresMouseEvents = false,
                                    .acceptsMouseMovedEvents = true,
                                    .canBecomeKey = true,
                                    .joinsAllSpaces = true,
                                    .fullScreenAuxiliary = true,
                                    .cursor = Cursor::crosshair};
    EXPECT_EQ(overlay(1)->window, expected);
    EXPECT_TRUE(overlay(1)->isKey);
    EXPECT_EQ(platform.application().activations, 1);
    EXPECT_TRUE(answers.empty());
}

TEST_F(ZonePickerServiceTest, TheDraggedRectangleIsDrawnDashed) {
    pick();
    overlay()->mouseDown({100, 200});
    overlay()->mouseDragged({400, 350});
    const Drawing expected = {Shape{.path = {Path::Kind::rectangle, {100, 200, 300, 150}},
                                    .fill = Colour{ColourName::systemBlue, 0.15},
                                    .stroke = Colour{ColourName::systemBlue},
                                    .lineWidth = 2,
                                    .dashPattern = {6, 4}}};
    EXPECT_EQ(overlay()->drawing, expected);
    overlay()->mouseDown({5, 5});
    EXPECT_TRUE(overlay()->drawing.empty());
}

TEST_F(ZonePickerServiceTest, ADragAcrossTwoScreensShowsOnBoth) {
    platform.screens().list = {primaryScreen, secondScreen};
    pick();
    overlay()->mouseDown({1800, 300});
    overlay()->mouseDragged({2000, 500});
    EXPECT_EQ(selectionOn(*overlay(0)), (Rectangle{1800, 300, 200, 200}));
    EXPECT_EQ(selectionOn(*overlay(1)), (Rectangle{-120, 244, 200, 200}));
}

TEST_F(ZonePickerServiceTest, AZoneOnAnotherScreenIsMeasuredFromThePrimaryOne) {
    platform.screens().list = {primaryScreen, {.frame = {-1280, -200, 1280, 1024}}};
    pick();
    drag({-1000, -150}, {-900, -130});
    EXPECT_EQ(answers.at(0)->absoluteRect, (Rectangle{-1000, 1210, 100, 20}));
}

TEST_F(ZonePickerServiceTest, TheDraggedRectangleIsDrawnWhereItsScreenIsNow) {
    platform.screens().list = {primaryScreen, secondScreen};
    pick();
    // The second screen takes over, and space is counted from its bottom.
    overlay(1)->frame = {1920, 0, 1280, 1024};
    overlay(1)->mouseDown({2000, 100});
    overlay(1)->mouseDragged({2100, 180});
    EXPECT_EQ(selectionOn(*overlay(1)), (Rectangle{80, 100, 100, 80}));
}

TEST_F(ZonePickerServiceTest, ThePrimaryScreenAtTheReleaseCounts) {
    pick();
    overlay()->mouseDown({100, 200});
    platform.screens().list = {{.frame = {0, 0, 2560, 1440}}};
    overlay()->mouseUp({400, 350});
    EXPECT_EQ(answers.at(0)->absoluteRect, (Rectangle{100, 1090, 300, 150}));
}

TEST_F(ZonePickerServiceTest, TheZoneIsAnsweredInGlobalDisplaySpaceOnce) {
    pick();
    drag({100, 200}, {400, 350});
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0], (ZonePickResult{{100, 730, 300, 150}}));
    EXPECT_EQ(log.lines(), Lines{"Zone selected: (100.0, 730.0, 300.0, 150.0)"});
    EXPECT_TRUE(platform.overlayWindows().living().empty());
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(ZonePickerServiceTest, AReverseDragGivesTheSameZone) {
    pick();
    drag({400, 350}, {100, 200});
    EXPECT_EQ(answers.at(0)->absoluteRect, (Rectangle{100, 730, 300, 150}));
}

TEST_F(ZonePickerServiceTest, ExactlyTenByTenIsAZone) {
    pick();
    drag({100, 100}, {110, 110});
    EXPECT_EQ(answers.at(0)->absoluteRect, (Rectangle{100, 970, 10, 10}));
}

TEST_F(ZonePickerServiceTest, AnythingNarrowerOrLowerCancels) {
    for (const Point end : {Point{109.9, 150}, Point{150, 109.9}, Point{100, 100}}) {
        pick();
        platform.overlayWindows().visible().front()->mouseDown({100, 100});
        platform.overlayWindows().visible().front()->mouseUp(end);
        EXPECT_EQ(answers.back(), std::nullopt);
    }
    EXPECT_EQ(answers.size(), 3U);
    EXPECT_EQ(log.lines(), Lines(3, "Zone picker cancelled"));
}

TEST_F(ZonePickerServiceTest, AReleaseWithoutAPressCancelsAndADragWithoutADrawsNothing) {
    pick();
    overlay()->mouseDragged({300, 300});
    EXPECT_TRUE(overlay()->drawing.empty());
    overlay()->mouseUp({300, 300});
    EXPECT_EQ(answers, std::vector{std::optional<ZonePickResult>()});
}

TEST_F(ZonePickerServiceTest, EscapeDuringADragAnswersNothing) {
    pick();
    overlay()->mouseDown({100, 100});
    overlay()->mouseDragged({300, 300});
    overlay()->keyDown(platform::Key::escape);
    EXPECT_EQ(answers, std::vector{std::optional<ZonePickResult>()});
    EXPECT_EQ(log.lines(), Lines{"Zone picker cancelled"});
    EXPECT_TRUE(platform.overlayWindows().living().empty());
}

TEST_F(ZonePickerServiceTest, ADragCutShortLeavesTheNextPickNoOrigin) {
    pick();
    overlay()->mouseDown({100, 100});
    overlay()->keyDown(platform::Key::escape);
    pick();
    platform.overlayWindows().visible().front()->mouseUp({300, 300});
    EXPECT_EQ(answers, std::vector(2, std::optional<ZonePickResult>()));
}

TEST_F(ZonePickerServiceTest, EscapeOnTheScreenWithTheKeyboardUncoversAll) {
    platform.screens().list = {primaryScreen, secondScreen};
    pick();
    EXPECT_FALSE(overlay(0)->isKey);
    overlay(1)->keyDown(platform::Key::escape);
    EXPECT_EQ(answers, std::vector{std::optional<ZonePickResult>()});
    EXPECT_TRUE(platform.overlayWindows().living().empty());
}

TEST_F(ZonePickerServiceTest, AnyOtherKeyDoesNothing) {
    pick();
    overlay()->keyDown(platform::Key::other);
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(overlay()->isVisible);
}

TEST_F(ZonePickerServiceTest, TheWindowUnderTheZoneIsOfferedAndAnchored) {
    putWindowUnderZone();
    platform.alerts().answers = {{.button = 0}};
    platform.alerts().whileShown = [this](const Alert &) {
        EXPECT_TRUE(platform.overlayWindows().living().empty());
    };
    pick();
    drag({100, 200}, {400, 350});
    const Alert expected{.style = AlertStyle::informational,
                         .messageText = "Anchor to window?",
                         .informativeText = "Anchor zone to \"Editor\" (Report)? The zone will "
                                            "follow the window when it moves.",
                         .buttons = {"Anchor", "No, keep absolute"}};
    EXPECT_EQ(platform.alerts().shown, std::vector{expected});
    const ZonePickResult anchored{
        {100, 730, 300, 150}, WindowAnchor{"org.example.editor", "Report", {100, 730, 300, 150}}};
    EXPECT_EQ(answers.at(0), anchored);
    EXPECT_EQ(log.lines().back(), "Zone anchored to org.example.editor");
}

TEST_F(ZonePickerServiceTest, KeepingItAbsoluteGivesTheSameZoneWithoutAnAnchor) {
    putWindowUnderZone();
    platform.alerts().answers = {{.button = 1}};
    pick();
    drag({100, 200}, {400, 350});
    EXPECT_EQ(answers.at(0), (ZonePickResult{{100, 730, 300, 150}}));
}

TEST_F(ZonePickerServiceTest, AnUnknownApplicationIsOfferedByItsIdentifier) {
    putWindowUnderZone();
    platform.applications().names.clear();
    pick();
    drag({100, 200}, {400, 350});
    EXPECT_EQ(platform.alerts().shown.at(0).informativeText,
              "Anchor zone to \"org.example.editor\" (Report)? The zone will follow the window "
              "when it moves.");
}

TEST_F(ZonePickerServiceTest, NamesThatLookLikePlaceholdersAreShownAsTheyAre) {
    putWindowUnderZone();
    platform.applications().names = {{"org.example.editor", "%@"}};
    platform.windowList().windows->front().name = "100%@ (draft)";
    pick();
    drag({100, 200}, {400, 350});
    EXPECT_EQ(platform.alerts().shown.at(0).informativeText,
              "Anchor zone to \"%@\" (100%@ (draft))? The zone will follow the window when it "
              "moves.");
}

TEST_F(ZonePickerServiceTest, TheQuestionIsAskedInTheUsersLanguage) {
    putWindowUnderZone();
    useTextLookup([](std::string_view english) { return "<" + std::string(english) + ">"; });
    pick();
    drag({100, 200}, {400, 350});
    useTextLookup({});
    const Alert expected{.style = AlertStyle::informational,
                         .messageText = "<Anchor to window?>",
                         .informativeText = "<Anchor zone to \"Editor\" (Report)? The zone will "
                                            "follow the window when it moves.>",
                         .buttons = {"<Anchor>", "<No, keep absolute>"}};
    EXPECT_EQ(platform.alerts().shown, std::vector{expected});
}

TEST_F(ZonePickerServiceTest, WithoutScreensAtTheReleaseNothingIsAnsweredAndLogged) {
    pick();
    platform.screens().list.clear();
    drag({100, 200}, {400, 350});
    EXPECT_EQ(answers, std::vector{std::optional<ZonePickResult>()});
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ZonePickerServiceTest, WithoutScreensThePickStaysOpen) {
    platform.screens().list.clear();
    pick();
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(platform.overlayWindows().all().empty());
}

TEST_F(ZonePickerServiceTest, AScreenThatGoesWhileAPickIsOpenLeavesTheOthersUsable) {
    platform.screens().list = {primaryScreen, secondScreen};
    pick();
    platform.screens().list.pop_back();
    drag({100, 200}, {400, 350});
    EXPECT_EQ(answers.at(0)->absoluteRect, (Rectangle{100, 730, 300, 150}));
}

TEST_F(ZonePickerServiceTest, ASecondPickTakesTheFirstOnesPlace) {
    int firstAnswers = 0;
    service->pick([&firstAnswers](const auto &) { ++firstAnswers; });
    pick();
    EXPECT_EQ(platform.overlayWindows().visible().size(), 2U);
    drag({100, 200}, {400, 350});
    EXPECT_EQ(firstAnswers, 0);
    EXPECT_EQ(answers.size(), 1U);
    EXPECT_TRUE(platform.overlayWindows().living().empty());
}

TEST_F(ZonePickerServiceTest, APickAskedForDuringTheQuestionIsAnsweredByIt) {
    putWindowUnderZone();
    platform.alerts().whileShown = [this](const Alert &) { pick(); };
    int firstAnswers = 0;
    service->pick([&firstAnswers](const auto &) { ++firstAnswers; });
    drag({100, 200}, {400, 350});
    EXPECT_EQ(firstAnswers, 0);
    EXPECT_EQ(answers, std::vector{std::optional(ZonePickResult{{100, 730, 300, 150}})});
    EXPECT_TRUE(platform.overlayWindows().living().empty());
}

TEST_F(ZonePickerServiceTest, APickMadeDuringTheQuestionLeavesTheQuestionNothingToAnswer) {
    putWindowUnderZone();
    platform.alerts().answers = {{.button = 0}};
    platform.alerts().whileShown = [this](const Alert &) {
        platform.alerts().whileShown = nullptr;
        pick();
        platform.overlayWindows().visible().front()->keyDown(platform::Key::escape);
    };
    pick();
    drag({100, 200}, {400, 350});
    EXPECT_EQ(answers, std::vector{std::optional<ZonePickResult>()});
}

TEST_F(ZonePickerServiceTest, AnAnswerMayAskForTheNextPick) {
    service->pick([this](const auto &) { pick(); });
    overlay()->keyDown(platform::Key::escape);
    ASSERT_EQ(platform.overlayWindows().visible().size(), 1U);
    platform.overlayWindows().visible().front()->keyDown(platform::Key::escape);
    EXPECT_EQ(answers.size(), 1U);
}

TEST_F(ZonePickerServiceTest, TheOverlaysGoWithTheService) {
    pick();
    service.reset();
    EXPECT_TRUE(platform.overlayWindows().living().empty());
    EXPECT_TRUE(answers.empty());
}

/// Every overlay it makes goes on reporting after its end.
class UnendingOverlays : public platform::OverlayWindows {
  public:
    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window,
                                                    platform::OverlayEvents events) override {
        kept.push_back(events);
        return windows_.create(window, {});
    }

    std::vector<platform::OverlayEvents> kept;

  private:
    testing::RecordingOverlayWindows windows_;
};

TEST_F(ZonePickerServiceTest, WhatAnOverlayReportsAfterTheAnswerIsDropped) {
    UnendingOverlays overlays;
    ZonePickerService picker(
        platform.screens(), overlays, platform.alerts(), platform.applications(),
        platform.application(),
        WindowResolver(platform.windowList(), platform.applications(), platform.accessibility()));
    picker.pick([this](const auto &result) { answers.push_back(result); });
    const platform::OverlayEvents &late = overlays.kept.at(0);
    late.keyDown(platform::Key::escape);
    late.keyDown(platform::Key::escape);
    late.mouseDown({100, 200});
    late.mouseDragged({300, 300});
    late.mouseUp({400, 350});
    EXPECT_EQ(answers, std::vector{std::optional<ZonePickResult>()});
    EXPECT_EQ(log.lines(), Lines{"Zone picker cancelled"});
}

TEST_F(ZonePickerServiceTest, WhatAnOverlayReportsAfterTheServiceHasGoneIsDropped) {
    UnendingOverlays overlays;
    auto ending = std::make_unique<ZonePickerService>(
        platform.screens(), overlays, platform.alerts(), platform.applications(),
        platform.application(),
        WindowResolver(platform.windowList(), platform.applications(), platform.accessibility()));
    ending->pick([this](const auto &result) { answers.push_back(result); });
    ending.reset();
    const platform::OverlayEvents &late = overlays.kept.at(0);
    late.mouseDown({100, 200});
    late.mouseDragged({300, 300});
    late.mouseUp({400, 350});
    late.keyDown(platform::Key::escape);
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ZonePickerServiceTest, AnOverlayNeedsNeitherDragNorReleaseCallback) {
    int presses = 0;
    OverlayWindow window(platform.overlayWindows(), primaryScreen.frame,
                         {.onMouseDown = [&presses](Point) { ++presses; }, .onCancel = [] {}});
    window.makeKeyAndOrderFront();
    overlay()->mouseDown({1, 1});
    overlay()->mouseDragged({2, 2});
    overlay()->mouseUp({3, 3});
    EXPECT_EQ(presses, 1);
}

TEST_F(ZonePickerServiceTest, WhateverTheUserDoesAPickIsAnsweredOnceAndLeavesNothingBehind) {
    platform.screens().list = {primaryScreen, secondScreen};
    putWindowUnderZone();
    std::mt19937 random(1);
    std::uniform_int_distribution<int> kind(0, 9);
    std::uniform_int_distribution<int> coordinate(-50, 3300);
    for (std::size_t picks = 1; picks <= 300; ++picks) {
        pick();
        while (!platform.overlayWindows().living().empty()) {
            const auto living = platform.overlayWindows().living();
            const auto &any = living.at(static_cast<std::size_t>(kind(random)) % living.size());
            const Point point{static_cast<double>(coordinate(random)),
                              static_cast<double>(coordinate(random))};
            switch (kind(random)) {
            case 0:
                any->keyDown(platform::Key::escape);
                break;
            case 1:
                any->keyDown(platform::Key::other);
                break;
            case 2:
                any->mouseUp(point);
                break;
            case 3:
            case 4:
                any->mouseDown(point);
                break;
            default:
                any->mouseDragged(point);
            }
        }
        ASSERT_EQ(answers.size(), picks);
        if (answers.back()) {
            EXPECT_GE(answers.back()->absoluteRect.width, 10);
            EXPECT_GE(answers.back()->absoluteRect.height, 10);
        }
    }
    const auto isZone = [](const auto &answer) { return answer.has_value(); };
    EXPECT_TRUE(std::ranges::any_of(answers, isZone));
    EXPECT_FALSE(std::ranges::all_of(answers, isZone));
}

} // namespace
} // namespace corvane
