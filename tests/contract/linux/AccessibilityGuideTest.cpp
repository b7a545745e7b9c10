#include "platform/linux/AccessibilityGuide.h"

#include "support/Localised.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace corvane::contract {

namespace {

using linux::accessibilityGuide;
using linux::AccessibilityObstacle;
using testing::HasSubstr;

TEST(AccessibilityGuideTest, NamesTheMissingExtension) {
    const auto guide = accessibilityGuide(AccessibilityObstacle::noTestExtension);
    EXPECT_EQ(guide.heading, "Corvane cannot click in other applications");
    ASSERT_EQ(guide.paragraphs.size(), 2U);
    EXPECT_THAT(guide.paragraphs[0], HasSubstr("XTEST"));
}

TEST(AccessibilityGuideTest, SendsUsersOfWaylandToAnotherSession) {
    const auto guide = accessibilityGuide(AccessibilityObstacle::waylandSession);
    EXPECT_EQ(guide.heading, "Corvane cannot click in other applications");
    ASSERT_EQ(guide.paragraphs.size(), 3U);
    EXPECT_THAT(guide.paragraphs[0], HasSubstr("Wayland"));
    EXPECT_THAT(guide.paragraphs[1], HasSubstr("XWayland"));
    EXPECT_THAT(guide.paragraphs[2], HasSubstr("Xorg"));
}

TEST(AccessibilityGuideTest, SaysWhenNothingIsMissing) {
    const auto guide = accessibilityGuide(AccessibilityObstacle::none);
    EXPECT_EQ(guide.heading, "Corvane can click in other applications");
    EXPECT_EQ(guide.paragraphs.size(), 1U);
}

TEST(AccessibilityGuideTest, IsInTheUsersLanguage) {
    useTextLookup([](std::string_view english) { return "<" + std::string(english) + ">"; });
    const auto guide = accessibilityGuide(AccessibilityObstacle::waylandSession);
    useTextLookup({});
    EXPECT_EQ(guide.title, "<Accessibility>");
    EXPECT_EQ(guide.closeButton, "<Close>");
    EXPECT_EQ(guide.heading, "<Corvane cannot click in other applications>");
    for (const std::string &paragraph : guide.paragraphs) {
        EXPECT_TRUE(paragraph.starts_with('<') && paragraph.ends_with('>')) << paragraph;
    }
}

} // namespace

} // namespace corvane::contract
