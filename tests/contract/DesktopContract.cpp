#include "BackEnd.h"
#include "platform/Accessibility.h"
#include "platform/Application.h"
#include "platform/Applications.h"
#include "platform/Localisation.h"
#include "platform/Platform.h"
#include "platform/Screens.h"
#include "platform/WindowList.h"

#include <cstdint>
#include <limits>

namespace corvane::contract {

namespace {

constexpr std::int32_t nobody = std::numeric_limits<std::int32_t>::max();

class DesktopContract : public ContractTest {};

TEST_P(DesktopContract, TheProgramKnowsItself) {
    const auto &application = platform().application();
    EXPECT_TRUE(application.homeDirectory().is_absolute());
    EXPECT_TRUE(application.shortVersion().has_value());
    EXPECT_TRUE(application.buildVersion().has_value());
    EXPECT_TRUE(application.iconFile().has_value());
    EXPECT_FALSE(platform().applications().ownBundleIdentifier().empty());
}

TEST_P(DesktopContract, ATextWithoutATranslationIsItself) {
    EXPECT_EQ(platform().localisation().text("No such text: 57"), "No such text: 57");
    EXPECT_EQ(platform().localisation().text(""), "");
}

TEST_P(DesktopContract, EveryScreenHasAnArea) {
    for (const platform::Screen &screen : platform().screens().screens()) {
        EXPECT_GT(screen.frame.width, 0);
        EXPECT_GT(screen.frame.height, 0);
    }
    EXPECT_FALSE(platform().screens().screens().empty());
}

TEST_P(DesktopContract, ThePrimaryScreenBeginsAtTheBottom) {
    const auto screens = platform().screens().screens();
    ASSERT_FALSE(screens.empty());
    EXPECT_EQ(screens.front().frame.y, 0);
}

TEST_P(DesktopContract, ThereAreNoWindowsOfAProcessThatIsNot) {
    EXPECT_EQ(platform().applications().running(nobody), std::nullopt);
    const auto windows = platform().accessibility().windows(nobody);
    EXPECT_TRUE(!windows || windows->empty());
}

TEST_P(DesktopContract, AnUnknownApplicationHasNoNameAndNoInstance) {
    EXPECT_EQ(platform().applications().displayName("example.nowhere"), std::nullopt);
    EXPECT_TRUE(platform().applications().running("example.nowhere").empty());
}

TEST_P(DesktopContract, TheWindowListCanBeRead) {
    EXPECT_TRUE(platform().windowList().onScreenWindows().has_value());
}

CORVANE_WINDOW_CONTRACT(DesktopContract);

} // namespace

} // namespace corvane::contract
