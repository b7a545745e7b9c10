#include "platform/drawing/MenuAlignment.h"

#include "SampleMenu.h"

#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

using drawing::alignMenu;

TEST(MenuAlignmentTest, KeepsAllLinesWhenOnlyTextsAndStatesChange) {
    const auto before = sampleMenu().items;
    auto after = before;
    after[0].title = "Running (1)";
    after[4].isEnabled = false;
    EXPECT_TRUE(alignMenu(before, after).isSameLayout());
}

TEST(MenuAlignmentTest, KeepsALineThatTakesAnotherCommand) {
    const auto before = sampleMenu().items;
    auto after = before;
    after[2] = {.title = "Start", .action = "startClicking:"};
    EXPECT_TRUE(alignMenu(before, after).isSameLayout());
}

TEST(MenuAlignmentTest, FindsTheLinesThatCome) {
    const auto before = sampleMenu().items;
    auto after = before;
    after.insert(after.begin() + 5, {.title = "Define zone...", .action = "selectZone:"});
    const auto alignment = alignMenu(before, after);
    EXPECT_EQ(alignment.leading, 5U);
    EXPECT_EQ(alignment.removed, 0U);
    EXPECT_EQ(alignment.inserted, 1U);
}

TEST(MenuAlignmentTest, FindsTheLinesThatGo) {
    const auto before = sampleMenu().items;
    auto after = before;
    after.erase(after.begin() + 1, after.begin() + 3);
    const auto alignment = alignMenu(before, after);
    EXPECT_EQ(alignment.leading, 1U);
    EXPECT_EQ(alignment.removed, 2U);
    EXPECT_EQ(alignment.inserted, 0U);
}

TEST(MenuAlignmentTest, ReplacesLinesOfAnotherKind) {
    const auto before = sampleMenu().items;
    auto after = before;
    std::swap(after[3].isOn, after[4].isOn);
    const auto alignment = alignMenu(before, after);
    EXPECT_EQ(alignment.leading, 3U);
    EXPECT_EQ(alignment.removed, 2U);
    EXPECT_EQ(alignment.inserted, 2U);
}

TEST(MenuAlignmentTest, TakesEmptyMenus) {
    const auto menu = sampleMenu().items;
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

} // namespace corvane::contract
