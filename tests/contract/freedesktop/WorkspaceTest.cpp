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

TEST(WorkspaceTest, AnAddressIsOpenedByTheDesktop) {
    const desktop::TemporaryFolder folder;
    const auto opener = folder.path() / "xdg-open";
    const auto opened = folder.path() / "opened";
    desktop::writeFile(opener, "#!/bin/sh\nprintf '%s\\n' \"$1\" >>" + opened.string() + "\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    const EnvironmentVariable path("PATH", folder.path().string() + ":/usr/bin:/bin");

    freedesktop::Workspace workspace;
    workspace.openUrl("https://corvane.example/donate?a=1&b=%20");
    EXPECT_TRUE(turnUntil([&opened] {
        return desktop::readFile(opened) == "https://corvane.example/donate?a=1&b=%20\n";
    }));
}

TEST(WorkspaceTest, WhatIsNoAddressIsPassedOverSilently) {
    freedesktop::Workspace workspace;
    EXPECT_NO_THROW(workspace.openUrl(""));
    EXPECT_NO_THROW(workspace.openUrl("http://["));
}

} // namespace

} // namespace corvane::contract
