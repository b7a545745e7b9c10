#include "support/ReadableView.h"
#include "support/recorder/RecordingPlatform.h"
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

// The cards, as the defaults make them where nothing else is said.

const std::string cursorCard =
    R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Mode", headline
      radio group *Free Cursor Defined Zone, says "Mode"
)tree";

std::string zoneCard(const std::string &zone, const std::string &anchorRows = "") {
    return R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Mode", headline
      radio group Free Cursor *Defined Zone, says "Mode"
      divider
      row center 8
        text )tree" +
           zone + R"tree(, secondary
        button rectangle.dashed "Define zone..." small
      divider
      toggle macwindow "Relative to a window" )tree" +
           (anchorRows.empty() ? "off\n" : "on\n" + anchorRows);
}

std::string anchorRows(const std::string &application) {
    return R"tree(      row center 8
        symbol link, callout, blue
        text "Anchored to )tree" +
           application + R"tree(" on one line, callout, secondary
        text "(Report)" on one line, callout, tertiary
)tree";
}

std::string rateCard(const std::string &rate = "1",
                     const std::string &units = "*second minute hour",
                     const std::string &interval = "1.00") {
    return R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Rate", headline
        row center 8
          number field )tree" +
           rate + R"tree(, width 52, says "Rate"
          stepper )tree" +
           rate + R"tree( in 1...9999 by 1, says "Rate"
          text "clicks per", secondary
          picker )tree" +
           units + R"tree(, says "clicks per"
        text "= 1 click every )tree" +
           interval + R"tree(s", callout, tertiary, full width trailing
)tree";
}

std::string limitCard(const std::string &limit) {
    return R"tree(    column center 0, padding 16, full width leading, on quaternary rounded 12
      column leading 10
        text "Limit", headline
        row center 8
          number field )tree" +
           limit + R"tree(, width 56, says "Limit"
          stepper )tree" +
           limit + R"tree( in 0...999999 by 1, says "Limit"
          text "clicks", secondary
)tree";
}

const std::string unlimitedCard =
    limitCard("0") +
    R"tree(        text "(unlimited)", callout, orange, full width trailing
)tree";

const std::string noZone = R"("No zone defined", callout)";

/// The cards of a tab, from top to bottom.
struct Cards {
    std::string mode = cursorCard;
    std::string rate = rateCard();
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

TEST_F(GeneralTabViewTest, ShowsTheCursorModeWithoutAnythingAboutZones) {
    EXPECT_EQ(tree(), tab({}));
    // Also where a zone is kept for later.
    config.zoneRect = CodableRect{120.4, 80, 300, 200};
    config.windowAnchor = anchor;
    EXPECT_EQ(tree(), tab({}));
}

TEST_F(GeneralTabViewTest, ShowsThatTheProgramStartsAtLogin) {
    platform.loginItem().enabled = true;
    EXPECT_EQ(tree(), tab({.startAtLogin = "on"}));
}

TEST_F(ZoneViewTest, ShowsThatThereIsNoZone) { EXPECT_EQ(tree(), tab({.mode = zoneCard(noZone)})); }

TEST_F(ZoneViewTest, ShowsAZone) {
    config.zoneRect = CodableRect{120.4, 80, 300, 200};
    EXPECT_EQ(tree(), tab({.mode = zoneCard(R"("Zone: 120, 80 — 300×200", callout monospaced)")}));
}

TEST_F(ZoneViewTest, ShowsAnAnchoredZone) {
    config.zoneRect = CodableRect{-20.9, -0.5, 300.9, 200.9};
    config.windowAnchor = anchor;
    platform.applications().names = {{"org.example.editor", "Editor"}};
    EXPECT_EQ(tree(), tab({.mode = zoneCard(R"("Zone: -20, 0 — 300×200", callout monospaced)",
                                            anchorRows("Editor"))}));
}

TEST_F(ZoneViewTest, ShowsAnAnchorThatHasLostItsZone) {
    config.windowAnchor = anchor;
    EXPECT_EQ(tree(), tab({.mode = zoneCard(noZone, anchorRows("org.example.editor"))}));
}

TEST_F(GeneralTabViewTest, ShowsARateOfNothingAsAClickASecond) {
    config.clickRate = 0;
    config.timeUnit = TimeUnit::hours;
    EXPECT_EQ(tree(), tab({.rate = rateCard("0", "second minute *hour")}));
}

TEST_F(GeneralTabViewTest, ShowsARateByTheMinute) {
    config.clickRate = 3;
    config.timeUnit = TimeUnit::minutes;
    EXPECT_EQ(tree(), tab({.rate = rateCard("3", "second *minute hour", "20.00")}));
}

TEST_F(GeneralTabViewTest, ShowsALimitWithoutAWordBelow) {
    config.maxClicks = 5;
    EXPECT_EQ(tree(), tab({.limit = limitCard("5")}));
}

TEST_F(GeneralTabViewTest, ShowsNumbersBeyondTheSteppers) {
    config.clickRate = std::numeric_limits<std::int64_t>::max();
    config.maxClicks = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(tree(), tab({.rate = rateCard("9223372036854775807", "*second minute hour", "0.00"),
                           .limit = limitCard("-9223372036854775808")}));
}

} // namespace

} // namespace corvane::testing
