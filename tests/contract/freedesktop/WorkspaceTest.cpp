#include "platform/freedesktop/applications/Workspace.h"

#include "EnvironmentVariable.h"
#include "EventLoop.h"
#include "TemporaryFolder.h"
#include "TextFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace corvane::contract {

namespace {

TEST(LinuxWorkspaceTest, TheAccessibilitySettingsAreOurOwnPage) {
    int guides = 0;
    freedesktop::Workspace workspace([&guides] { ++guides; });
    workspace.openUrl(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
    EXPECT_EQ(guides, 1);
}

TEST(LinuxWorkspaceTest, EverythingElseIsTheDesktopsPart) {
    const desktop::TemporaryFolder folder;
    const auto opener = folder.path() / "xdg-open";
    const auto opened = folder.path() / "opened";
    desktop::writeFile(opener, "#!/bin/sh\nprintf '%s\\n' \"$1\" >>" + opened.string() + "\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    const EnvironmentVariable path("PATH", folder.path().string() + ":/usr/bin:/bin");

    int guides = 0;
    freedesktop::Workspace workspace([&guides] { ++guides; });
    workspace.openUrl("https://corvane.example/donate?a=1&b=%20");
    EXPECT_TRUE(turnUntil([&opened] {
        return desktop::readFile(opened) == "https://corvane.example/donate?a=1&b=%20\n";
    }));
    EXPECT_EQ(guides, 0);
}

TEST(LinuxWorkspaceTest, WhatIsNoAddressIsPassedOverSilently) {
    int guides = 0;
    freedesktop::Workspace workspace([&guides] { ++guides; });
    workspace.openUrl("");
    workspace.openUrl("http://[");
    EXPECT_EQ(guides, 0);
}

} // namespace

} // namespace corvane::contract
