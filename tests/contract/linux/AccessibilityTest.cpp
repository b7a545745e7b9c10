#include "platform/Accessibility.h"

#include "EnvironmentVariable.h"
#include "LinuxBackEnd.h"
#include "actors/ClickClient.h"
#include "platform/Applications.h"
#include "servers/VirtualDesktop.h"

#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace corvane::contract {

namespace {

int guides() {
    const auto windows = QApplication::topLevelWidgets();
    return static_cast<int>(std::ranges::count_if(windows, [](const QWidget *window) {
        return window->isVisible() && window->windowTitle() == QStringLiteral("Accessibility");
    }));
}

std::set<std::optional<std::string>> titlesOf(platform::Platform &platform,
                                              const std::string &application) {
    std::set<std::optional<std::string>> titles;
    for (const auto &instance : platform.applications().running(application)) {
        const auto windows = platform.accessibility().windows(instance.processIdentifier);
        for (const auto &window : *windows) {
            titles.insert(window->title());
        }
    }
    return titles;
}

TEST(AccessibilityTest, AServerThatTakesPressesIsTrustedWithoutAWord) {
    LinuxBackEnd backEnd;
    EXPECT_TRUE(backEnd.platform().accessibility().isProcessTrusted());
    EXPECT_TRUE(backEnd.platform().accessibility().isProcessTrustedWithPrompt());
    EXPECT_EQ(guides(), 0);
}

TEST(AccessibilityTest, AServerThatTakesNoneIsExplainedOnRequest) {
    const desktop::VirtualDesktop desktop(
        {.windowManager = desktop::WindowManager::none, .withoutExtensions = {"XTEST"}});
    const EnvironmentVariable display("DISPLAY", desktop.display());
    LinuxBackEnd backEnd;
    auto &accessibility = backEnd.platform().accessibility();
    EXPECT_FALSE(accessibility.isProcessTrusted());
    EXPECT_EQ(guides(), 0);
    EXPECT_FALSE(accessibility.isProcessTrustedWithPrompt());
    EXPECT_EQ(guides(), 1);
    // Asking again shows the same page, not another one.
    EXPECT_FALSE(accessibility.isProcessTrustedWithPrompt());
    EXPECT_EQ(guides(), 1);
}

TEST(AccessibilityTest, TheWindowsOfAnApplicationAreThoseOfAllItsProcesses) {
    const desktop::VirtualDesktop desktop;
    const EnvironmentVariable display("DISPLAY", desktop.display());
    desktop::ClickClient older(desktop);
    desktop::ClickClient younger(desktop);
    older.open({.title = "Older", .className = "Editor"});
    younger.open({.title = "Younger", .className = "Editor"});
    younger.open({.title = "Another", .className = "Other"});
    LinuxBackEnd backEnd;
    EXPECT_TRUE(backEnd.turnUntil([&] {
        return titlesOf(backEnd.platform(), "Editor") ==
               std::set<std::optional<std::string>>{"Older", "Younger", "Another"};
    }));
}

TEST(AccessibilityTest, TheSettingsPageOpensTheGuide) {
    LinuxBackEnd backEnd;
    backEnd.platform().accessibility().openSettings();
    EXPECT_EQ(guides(), 1);
}

} // namespace

} // namespace corvane::contract
