#include "model/WindowAnchor.h"

#include "support/FakeApplications.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(WindowAnchorTest, IsEqualWhenAllItsFieldsAre) {
    const WindowAnchor anchor{"org.example.editor", "Notes", {1, 2, 3, 4}};
    EXPECT_EQ(anchor, (WindowAnchor{"org.example.editor", "Notes", {1, 2, 3, 4}}));
    EXPECT_NE(anchor, (WindowAnchor{"org.example.other", "Notes", {1, 2, 3, 4}}));
    EXPECT_NE(anchor, (WindowAnchor{"org.example.editor", "Letter", {1, 2, 3, 4}}));
    EXPECT_NE(anchor, (WindowAnchor{"org.example.editor", "Notes", {9, 2, 3, 4}}));
}

TEST(WindowAnchorTest, NamesTheApplicationAsTheSystemDoes) {
    testing::FakeApplications applications;
    applications.names["org.example.editor"] = "Editor";
    const WindowAnchor anchor{"org.example.editor", "Notes", {}};
    EXPECT_EQ(anchor.appName(applications), "Editor");
}

TEST(WindowAnchorTest, NamesAnUnknownApplicationByItsIdentifier) {
    testing::FakeApplications applications;
    const WindowAnchor anchor{"org.example.gone", "Notes", {}};
    EXPECT_EQ(anchor.appName(applications), "org.example.gone");
}

} // namespace
} // namespace corvane
