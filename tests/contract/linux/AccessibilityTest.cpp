#include "platform/Accessibility.h"

#include "EnvironmentVariable.h"
#include "LinuxBackEnd.h"
#include "VirtualDesktop.h"
#include "platform/Workspace.h"

#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include <algorithm>

namespace corvane::contract {

namespace {

int guides() {
    const auto windows = QApplication::topLevelWidgets();
    return static_cast<int>(std::ranges::count_if(windows, [](const QWidget *window) {
        return window->isVisible() && window->windowTitle() == QStringLiteral("Accessibility");
    }));
}

TEST(LinuxAccessibilityTest, AServerThatTakesPressesIsTrustedWithoutAWord) {
    LinuxBackEnd backEnd;
    EXPECT_TRUE(backEnd.platform().accessibility().isProcessTrusted());
    EXPECT_TRUE(backEnd.platform().accessibility().isProcessTrustedWithPrompt());
    EXPECT_EQ(guides(), 0);
}

TEST(LinuxAccessibilityTest, AServerThatTakesNoneIsExplainedOnRequest) {
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

TEST(LinuxAccessibilityTest, TheSettingsPageOpensTheGuide) {
    LinuxBackEnd backEnd;
    backEnd.platform().workspace().openUrl(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
    EXPECT_EQ(guides(), 1);
}

} // namespace

} // namespace corvane::contract
