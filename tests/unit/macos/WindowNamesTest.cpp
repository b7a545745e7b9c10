#include "platform/macos/logic/WindowNames.h"

#include "support/FakeAccessibility.h"

#include <gtest/gtest.h>

namespace corvane::macos {
namespace {

constexpr std::int32_t ownProcess = 99;
constexpr Rectangle frame{100, 200, 800, 600};

class WindowNamesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        accessibility_.isTrusted = true;
        accessibility_.windowsByProcess[7] = {
            {.title = "Elsewhere", .position = Point{0, 0}, .size = Size{800, 600}},
            {.title = "Report", .position = Point{100.4, 200}, .size = Size{800, 600}}};
    }

    std::optional<std::string> nameOf(const platform::WindowListEntry &entry) {
        std::vector<platform::WindowListEntry> windows = {entry};
        addMissingNames(windows, accessibility_, ownProcess);
        return windows.front().name;
    }

    testing::FakeAccessibility accessibility_;
};

TEST_F(WindowNamesTest, AWindowWithoutANameGetsTheTitleOfTheOneInItsPlace) {
    EXPECT_EQ(nameOf({.bounds = frame, .ownerProcessIdentifier = 7, .layer = 0}), "Report");
    EXPECT_EQ(nameOf({.bounds = frame, .ownerProcessIdentifier = 7}), "Report");
}

TEST_F(WindowNamesTest, ANameThatIsThereStays) {
    EXPECT_EQ(nameOf({.bounds = frame, .ownerProcessIdentifier = 7, .name = "Named"}), "Named");
}

TEST_F(WindowNamesTest, WhatNobodyKnowsHasNoName) {
    EXPECT_EQ(nameOf({.bounds = Rectangle{5, 5, 5, 5}, .ownerProcessIdentifier = 7}), std::nullopt);
    EXPECT_EQ(nameOf({.bounds = frame, .ownerProcessIdentifier = 8}), std::nullopt);
    EXPECT_EQ(nameOf({.bounds = frame}), std::nullopt);
    EXPECT_EQ(nameOf({.ownerProcessIdentifier = 7}), std::nullopt);
}

TEST_F(WindowNamesTest, PanelsAndOwnWindowsAreLeftAlone) {
    accessibility_.windowsByProcess[ownProcess] = accessibility_.windowsByProcess[7];
    EXPECT_EQ(nameOf({.bounds = frame, .ownerProcessIdentifier = 7, .layer = 3}), std::nullopt);
    EXPECT_EQ(nameOf({.bounds = frame, .ownerProcessIdentifier = ownProcess}), std::nullopt);
}

TEST_F(WindowNamesTest, WithoutThePermissionNothingIsAdded) {
    accessibility_.isTrusted = false;
    EXPECT_EQ(nameOf({.bounds = frame, .ownerProcessIdentifier = 7}), std::nullopt);
}

} // namespace
} // namespace corvane::macos
