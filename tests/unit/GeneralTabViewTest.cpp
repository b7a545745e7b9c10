#include "support/ReadableView.h"
#include "support/RecordingPlatform.h"
#include "ui/GeneralTab.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace corvane::testing {

namespace {

/// What the tab looks like, whole, in each of its states.
class GeneralTabViewTest : public ::testing::Test {
  protected:
    std::string tree() {
        return readableText(std::make_shared<GeneralTab>(config, platform.loginItem(),
                                                         platform.alerts(), platform.applications(),
                                                         resolver)
                                ->body());
    }

    RecordingPlatform platform;
    WindowResolver resolver{platform.windowList(), platform.applications(),
                            platform.accessibility()};
    CorvaneConfig config;
};

/// With "Defined Zone" chosen.
class ZoneViewTest : public GeneralTabViewTest {
  protected:
    ZoneViewTest() { config.clickMode = ClickMode::zone; }
};

const WindowAnchor anchor{"org.example.editor", "Report", {20, 30, 300, 200}};

// The cards as the defaults make them.

const std::string cursorCard =
    R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Mode", headline
      radio group *Free Cursor Defined Zone, says "Mode"
)tree";

const std::string secondCard =
    R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Rate", headline
        row center 8
          number field 1, width 52, says "Rate"
          stepper 1 in 1...9999 by 1, says "Rate"
          text "clicks per", secondary
          picker *second minute hour, says "clicks per"
        text "= 1 click every 1.00s", callout, tertiary, full width trailing
)tree";

const std::string unlimitedCard =
    R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Limit", headline
        row center 8
          number field 0, width 56, says "Limit"
          stepper 0 in 0...999999 by 1, says "Limit"
          text "clicks", secondary
        text "(unlimited)", callout, orange, full width trailing
)tree";

/// The cards of a tab, from top to bottom.
struct Cards {
    std::string mode = cursorCard;
    std::string rate = secondCard;
    std::string limit = unlimitedCard;
    std::string startAtLogin = "off";
};

std::string tab(const Cards &cards) {
    return "column center 12, padding 20, width 540, is \"general\"\n" + cards.mode +
           "  row top 12\n" + cards.rate + cards.limit + "  toggle \"Start at Login\" " +
           cards.startAtLogin + R"tree(
  row center 8
    button "OK" prominent default
)tree";
}

TEST_F(GeneralTabViewTest, showsTheCursorModeWithoutAnythingAboutZones) {
    EXPECT_EQ(tree(), tab({}));
    // Also where a zone is kept for later.
    config.zoneRect = CodableRect{120.4, 80, 300, 200};
    config.windowAnchor = anchor;
    EXPECT_EQ(tree(), tab({}));
}

TEST_F(GeneralTabViewTest, showsThatTheProgramStartsAtLogin) {
    platform.loginItem().enabled = true;
    EXPECT_EQ(tree(), tab({.startAtLogin = "on"}));
}

TEST_F(ZoneViewTest, showsThatThereIsNoZone) {
    EXPECT_EQ(
        tree(),
        tab({.mode =
                 R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Mode", headline
      radio group Free Cursor *Defined Zone, says "Mode"
      divider
      row center 8
        text "No zone defined", callout, secondary
        button rectangle.dashed "Define zone..." small
      divider
      toggle macwindow "Relative to a window" off
)tree"}));
}

TEST_F(ZoneViewTest, showsAZone) {
    config.zoneRect = CodableRect{120.4, 80, 300, 200};
    EXPECT_EQ(
        tree(),
        tab({.mode =
                 R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Mode", headline
      radio group Free Cursor *Defined Zone, says "Mode"
      divider
      row center 8
        text "Zone: 120, 80 — 300×200", callout monospaced, secondary
        button rectangle.dashed "Define zone..." small
      divider
      toggle macwindow "Relative to a window" off
)tree"}));
}

TEST_F(ZoneViewTest, showsAnAnchoredZone) {
    config.zoneRect = CodableRect{-20.9, -0.5, 300.9, 200.9};
    config.windowAnchor = anchor;
    platform.applications().names = {{"org.example.editor", "Editor"}};
    EXPECT_EQ(
        tree(),
        tab({.mode =
                 R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Mode", headline
      radio group Free Cursor *Defined Zone, says "Mode"
      divider
      row center 8
        text "Zone: -20, 0 — 300×200", callout monospaced, secondary
        button rectangle.dashed "Define zone..." small
      divider
      toggle macwindow "Relative to a window" on
      row center 8
        symbol link, callout, blue
        text "Anchored to Editor" on one line, callout, secondary
        text "(Report)" on one line, callout, tertiary
)tree"}));
}

TEST_F(ZoneViewTest, showsAnAnchorThatHasLostItsZone) {
    config.windowAnchor = anchor;
    EXPECT_EQ(
        tree(),
        tab({.mode =
                 R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Mode", headline
      radio group Free Cursor *Defined Zone, says "Mode"
      divider
      row center 8
        text "No zone defined", callout, secondary
        button rectangle.dashed "Define zone..." small
      divider
      toggle macwindow "Relative to a window" on
      row center 8
        symbol link, callout, blue
        text "Anchored to org.example.editor" on one line, callout, secondary
        text "(Report)" on one line, callout, tertiary
)tree"}));
}

TEST_F(GeneralTabViewTest, showsARateOfNothingAsAClickASecond) {
    config.clickRate = 0;
    config.timeUnit = TimeUnit::hours;
    EXPECT_EQ(
        tree(),
        tab({.rate =
                 R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Rate", headline
        row center 8
          number field 0, width 52, says "Rate"
          stepper 0 in 1...9999 by 1, says "Rate"
          text "clicks per", secondary
          picker second minute *hour, says "clicks per"
        text "= 1 click every 1.00s", callout, tertiary, full width trailing
)tree"}));
}

TEST_F(GeneralTabViewTest, showsARateByTheMinute) {
    config.clickRate = 3;
    config.timeUnit = TimeUnit::minutes;
    EXPECT_EQ(
        tree(),
        tab({.rate =
                 R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Rate", headline
        row center 8
          number field 3, width 52, says "Rate"
          stepper 3 in 1...9999 by 1, says "Rate"
          text "clicks per", secondary
          picker second *minute hour, says "clicks per"
        text "= 1 click every 20.00s", callout, tertiary, full width trailing
)tree"}));
}

TEST_F(GeneralTabViewTest, showsALimitWithoutAWordBelow) {
    config.maxClicks = 5;
    EXPECT_EQ(
        tree(),
        tab({.limit =
                 R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Limit", headline
        row center 8
          number field 5, width 56, says "Limit"
          stepper 5 in 0...999999 by 1, says "Limit"
          text "clicks", secondary
)tree"}));
}

TEST_F(GeneralTabViewTest, showsNumbersBeyondTheSteppers) {
    config.clickRate = std::numeric_limits<std::int64_t>::max();
    config.maxClicks = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(
        tree(),
        tab({.rate =
                 R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Rate", headline
        row center 8
          number field 9223372036854775807, width 52, says "Rate"
          stepper 9223372036854775807 in 1...9999 by 1, says "Rate"
          text "clicks per", secondary
          picker *second minute hour, says "clicks per"
        text "= 1 click every 0.00s", callout, tertiary, full width trailing
)tree",
             .limit =
                 R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Limit", headline
        row center 8
          number field -9223372036854775808, width 56, says "Limit"
          stepper -9223372036854775808 in 0...999999 by 1, says "Limit"
          text "clicks", secondary
)tree"}));
}

} // namespace

} // namespace corvane::testing
