#include "ui/StatusBarController.h"

#include "app/SharedServices.h"
#include "support/MenuListing.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::listing;

class StatusBarControllerTest : public ::testing::Test {
  protected:
    std::string menu() { return listing(controller.menu()); }

    void createStatusItem() {
        controller.statusItem = platform.statusBar().createItem([](const MenuCommand &) {});
    }

    testing::RecordingPlatform platform;
    SharedServices shared{platform};
    AppState &state = shared.appState;
    StatusBarController controller{state, platform.applications()};
};

TEST_F(StatusBarControllerTest, NotGrantedAndIdle) {
    EXPECT_EQ(menu(), "Idle (off)\n"
                      "Open Accessibility Settings... | openAccessibilitySettings | lock.shield\n"
                      "---\n"
                      "Start (off) | startClicking | play.fill | hot key Y\n"
                      "---\n"
                      "[x] Free Cursor | setModeCursor\n"
                      "Defined Zone | setModeZone\n"
                      "---\n"
                      "Rate: 1/s — unlimited (off)\n"
                      "---\n"
                      "Profiles | person.crop.rectangle.stack\n"
                      "    No profiles (off)\n"
                      "    ---\n"
                      "    Save current config... | saveAsProfile | plus.circle\n"
                      "---\n"
                      "Settings... | showConfig | gearshape | ,\n"
                      "Quit Corvane | terminate | q\n");
}

TEST_F(StatusBarControllerTest, GrantedAndIdleInCursorMode) {
    state.isAccessibilityGranted = true;
    state.config.zoneRect = CodableRect{1, 2, 3, 4};
    EXPECT_EQ(menu(), "Idle (off)\n"
                      "---\n"
                      "Start | startClicking | play.fill | hot key Y\n"
                      "---\n"
                      "[x] Free Cursor | setModeCursor\n"
                      "Defined Zone | setModeZone\n"
                      "---\n"
                      "Rate: 1/s — unlimited (off)\n"
                      "---\n"
                      "Profiles | person.crop.rectangle.stack\n"
                      "    No profiles (off)\n"
                      "    ---\n"
                      "    Save current config... | saveAsProfile | plus.circle\n"
                      "---\n"
                      "Settings... | showConfig | gearshape | ,\n"
                      "Quit Corvane | terminate | q\n");
}

TEST_F(StatusBarControllerTest, RunningOffersOnlyStopAndQuit) {
    state.isAccessibilityGranted = true;
    state.status = ClickStatus::running;
    state.clickCount = 12;
    state.config = {.clickMode = ClickMode::zone,
                    .zoneRect = CodableRect{0, 0, 300.9, 200.2},
                    .clickRate = 5,
                    .timeUnit = TimeUnit::minutes,
                    .maxClicks = 50};
    const Uuid id = Uuid::random();
    state.profiles = {{id, "Games", {}}};
    state.activeProfileID = id;
    EXPECT_EQ(menu(), "Running (12 clicks) (off)\n"
                      "---\n"
                      "Stop | stopClicking | stop.fill | hot key Y\n"
                      "---\n"
                      "Free Cursor (off) | setModeCursor\n"
                      "[x] Defined Zone (300×200) (off) | setModeZone\n"
                      "Define zone... (off) | selectZone | rectangle.dashed\n"
                      "---\n"
                      "Rate: 5/m — 50x (off)\n"
                      "---\n"
                      "Profiles | person.crop.rectangle.stack\n"
                      "    [x] Games (off) | loadProfile | " +
                          id.text() +
                          "\n"
                          "    ---\n"
                          "    Save current config... (off) | saveAsProfile | plus.circle\n"
                          "---\n"
                          "Settings... (off) | showConfig | gearshape | ,\n"
                          "Quit Corvane | terminate | q\n");
}

TEST_F(StatusBarControllerTest, TheZoneTitleNamesSizeAndApplicationInZoneModeOnly) {
    const auto zoneTitle = [this] {
        for (const MenuItem &item : controller.menu().items) {
            if (item.action == ActionID::setModeZone) {
                return item.title;
            }
        }
        return std::string("no zone item");
    };
    state.config.clickMode = ClickMode::zone;
    EXPECT_EQ(zoneTitle(), "Defined Zone");
    state.config.windowAnchor = WindowAnchor{"org.example.preview", "Page", {}};
    EXPECT_EQ(zoneTitle(), "Defined Zone");
    state.config.zoneRect = CodableRect{10, 10, 300.9, 200.2};
    EXPECT_EQ(zoneTitle(), "Defined Zone (300×200) (org.example.preview)");
    platform.applications().names["org.example.preview"] = "Preview";
    EXPECT_EQ(zoneTitle(), "Defined Zone (300×200) (Preview)");
    state.config.windowAnchor.reset();
    EXPECT_EQ(zoneTitle(), "Defined Zone (300×200)");
    state.config.clickMode = ClickMode::cursor;
    EXPECT_EQ(zoneTitle(), "Defined Zone");
}

TEST_F(StatusBarControllerTest, OnlyTheActiveProfileIsChecked) {
    const Uuid first = Uuid::random();
    const Uuid second = Uuid::random();
    state.profiles = {{first, "One", {}}, {second, "Two", {}}};
    state.activeProfileID = second;
    const Menu built = controller.menu();
    const auto profiles = std::ranges::find_if(
        built.items, [](const MenuItem &item) { return item.submenu.has_value(); });
    ASSERT_NE(profiles, built.items.end());
    EXPECT_EQ(listing({*profiles->submenu}),
              "One | loadProfile | " + first.text() + "\n[x] Two | loadProfile | " + second.text() +
                  "\n---\nSave current config... | saveAsProfile | plus.circle\n");
}

TEST_F(StatusBarControllerTest, MenuSymbolsHaveOneSize) {
    for (const MenuItem &item : controller.menu().items) {
        if (item.image) {
            EXPECT_EQ(item.image->pointSize, 13) << item.title;
            EXPECT_EQ(item.image->weight, FontWeight::regular) << item.title;
        }
    }
}

TEST_F(StatusBarControllerTest, TheIconCarriesADotWhileRunning) {
    createStatusItem();
    controller.updateIcon();
    const StatusIcon idle{
        .image = {.name = "cursorarrow.click.2", .pointSize = 14, .description = "Corvane"},
        .title = ""};
    EXPECT_EQ(platform.statusBar().item().icon, idle);

    state.status = ClickStatus::running;
    controller.updateIcon();
    StatusIcon running = idle;
    running.dot =
        StatusDot{.frame = {24, 2, 7, 7}, .cornerRadius = 3.5, .colour = {ColourName::systemGreen}};
    EXPECT_EQ(platform.statusBar().item().icon, running);

    state.status = ClickStatus::idle;
    controller.updateIcon();
    EXPECT_EQ(platform.statusBar().item().icon, idle);
}

TEST_F(StatusBarControllerTest, WithoutItemOrButtonTheIconIsLeftAlone) {
    controller.updateIcon();
    controller.rebuildMenu();
    EXPECT_TRUE(platform.statusBar().items().empty());

    platform.statusBar().buttonSize.reset();
    createStatusItem();
    controller.updateIcon();
    EXPECT_EQ(platform.statusBar().item().iconsSet, 0);
    controller.rebuildMenu();
    EXPECT_EQ(platform.statusBar().item().menu, controller.menu());
}

} // namespace
} // namespace corvane
