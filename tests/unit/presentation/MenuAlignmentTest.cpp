#include "presentation/MenuAlignment.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace corvane::testing {

namespace {

/// With one of every kind of line.
std::vector<MenuItem> sampleItems() {
    return {{.title = "Running", .isEnabled = false},
            MenuItem::separator(),
            {.title = "Stop", .action = ActionID::stopClicking},
            {.title = "Free Cursor",
             .action = ActionID::setModeCursor,
             .isEnabled = false,
             .isOn = true},
            {.title = "Defined Zone", .action = ActionID::setModeZone},
            {.title = "Profiles", .submenu = std::vector<MenuItem>{MenuItem::separator()}},
            {.title = "Quit", .action = ActionID::terminate, .commandKey = "q"}};
}

TEST(MenuAlignmentTest, KeepsAllLinesWhenOnlyTextsAndStatesChange) {
    const auto before = sampleItems();
    auto after = before;
    after[0].title = "Running (1)";
    after[4].isEnabled = false;
    EXPECT_TRUE(alignMenu(before, after).isSameLayout());
}

TEST(MenuAlignmentTest, KeepsALineThatTakesAnotherCommand) {
    const auto before = sampleItems();
    auto after = before;
    after[2] = {.title = "Start", .action = ActionID::startClicking};
    EXPECT_TRUE(alignMenu(before, after).isSameLayout());
}

TEST(MenuAlignmentTest, FindsTheLinesThatCome) {
    const auto before = sampleItems();
    auto after = before;
    after.insert(after.begin() + 5, {.title = "Define zone...", .action = ActionID::selectZone});
    const auto alignment = alignMenu(before, after);
    EXPECT_EQ(alignment.leading, 5U);
    EXPECT_EQ(alignment.removed, 0U);
    EXPECT_EQ(alignment.inserted, 1U);
}

TEST(MenuAlignmentTest, FindsTheLinesThatGo) {
    const auto before = sampleItems();
    auto after = before;
    after.erase(after.begin() + 1, after.begin() + 3);
    const auto alignment = alignMenu(before, after);
    EXPECT_EQ(alignment.leading, 1U);
    EXPECT_EQ(alignment.removed, 2U);
    EXPECT_EQ(alignment.inserted, 0U);
}

TEST(MenuAlignmentTest, ReplacesLinesOfAnotherKind) {
    const auto before = sampleItems();
    auto after = before;
    std::swap(after[3].isOn, after[4].isOn);
    const auto alignment = alignMenu(before, after);
    EXPECT_EQ(alignment.leading, 3U);
    EXPECT_EQ(alignment.removed, 2U);
    EXPECT_EQ(alignment.inserted, 2U);
}

TEST(MenuAlignmentTest, TakesEmptyMenus) {
    const auto menu = sampleItems();
    EXPECT_TRUE(alignMenu({}, {}).isSameLayout());
    EXPECT_EQ(alignMenu({}, menu).inserted, menu.size());
    EXPECT_EQ(alignMenu(menu, {}).removed, menu.size());
}

TEST(MenuAlignmentTest, TakesEqualNeighbours) {
    const std::vector<MenuItem> before(3, MenuItem::separator());
    const std::vector<MenuItem> after(2, MenuItem::separator());
    const auto alignment = alignMenu(before, after);
    EXPECT_EQ(alignment.leading, 2U);
    EXPECT_EQ(alignment.removed, 1U);
    EXPECT_EQ(alignment.inserted, 0U);
}

} // namespace

} // namespace corvane::testing
