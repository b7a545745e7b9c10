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

TEST(AccessibilityGuideTest, NamesTheFileThatKWinDoesNotAccept) {
    const auto guide = accessibilityGuide(AccessibilityObstacle::kwinRefusal);
    EXPECT_EQ(guide.heading, "Corvane cannot click in other applications");
    ASSERT_EQ(guide.paragraphs.size(), 2U);
    EXPECT_THAT(guide.paragraphs[0], HasSubstr("KDE Plasma"));
    EXPECT_THAT(guide.paragraphs[0], HasSubstr("corvane-mouse-button.desktop"));
    EXPECT_THAT(guide.paragraphs[1], HasSubstr("start it again"));
}

TEST(AccessibilityGuideTest, SaysWhenNothingIsMissing) {
    const auto guide = accessibilityGuide(AccessibilityObstacle::none);
    EXPECT_EQ(guide.heading, "Corvane can click in other applications");
    EXPECT_EQ(guide.paragraphs.size(), 1U);
}

TEST(AccessibilityGuideTest, LeadsToTheDesktopsQuestion) {
    for (const auto obstacle :
         {AccessibilityObstacle::consentNeeded, AccessibilityObstacle::consentRefused,
          AccessibilityObstacle::consentWithoutPointer, AccessibilityObstacle::consentWithoutScreen,
          AccessibilityObstacle::consentEnded}) {
        const auto guide = accessibilityGuide(obstacle);
        EXPECT_TRUE(isAnsweredByUser(obstacle));
        EXPECT_EQ(guide.heading, "Corvane cannot click in other applications");
        EXPECT_EQ(guide.closeButton, "Continue");
        ASSERT_EQ(guide.paragraphs.size(), 2U);
        EXPECT_THAT(guide.paragraphs[1], HasSubstr("choose every screen"));
        EXPECT_THAT(guide.paragraphs[1], HasSubstr("Allow Remote Interaction"));
    }
}

TEST(AccessibilityGuideTest, NamesTheMissingLibrary) {
    const auto guide = accessibilityGuide(AccessibilityObstacle::noScreenCast);
    EXPECT_FALSE(isAnsweredByUser(AccessibilityObstacle::noScreenCast));
    EXPECT_EQ(guide.closeButton, "Close");
    ASSERT_EQ(guide.paragraphs.size(), 1U);
    EXPECT_THAT(guide.paragraphs[0], HasSubstr("libpipewire-0.3"));
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
