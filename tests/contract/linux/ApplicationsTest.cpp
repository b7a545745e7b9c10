#include "platform/linux/Applications.h"

#include "SampleWindow.h"
#include "TemporaryFolder.h"
#include "TextFile.h"
#include "WindowSystemTest.h"
#include "actors/ClickClient.h"
#include "platform/linux/X11System.h"
#include "platform/linux/timing/MainQueue.h"

#include <limits>
#include <set>
#include <vector>

#include <unistd.h>

namespace corvane::contract {

namespace {

using desktop::ClickClient;
using platform::RunningApplication;

class ApplicationsTest : public WindowSystemTest {
  protected:
    ApplicationsTest() : WindowSystemTest({}) {
        desktop::writeFile(folder_.path() / "org.example.editor.desktop",
                           "[Desktop Entry]\nType=Application\nName=Example Editor\n"
                           "Exec=example-editor %F\nStartupWMClass=Editor\n");
    }

    bool turnUntilRunning(std::int32_t process) {
        return turnUntil([&] { return applications_.running(process).has_value(); });
    }

    desktop::TemporaryFolder folder_;
    linux::MainQueue mainQueue_;
    x11::ClientWindows windows_{x11::XcbConnection::open().value(), mainQueue_};
    linux::Applications applications_{linux::windowOwners(windows_),
                                      freedesktop::DesktopEntries({folder_.path()}, "C")};
};

TEST_F(ApplicationsTest, AProcessWithoutWindowsIsNoApplication) {
    EXPECT_EQ(applications_.running(1), std::nullopt);
    EXPECT_EQ(applications_.running(std::numeric_limits<std::int32_t>::max()), std::nullopt);
    EXPECT_EQ(applications_.running(0), std::nullopt);
    EXPECT_EQ(applications_.running(-1), std::nullopt);
}

TEST_F(ApplicationsTest, TheDesktopFileNamesTheApplication) {
    ClickClient client(desktop_);
    client.open({.className = "Editor"});
    ASSERT_TRUE(turnUntilRunning(client.pid()));
    const RunningApplication expected{client.pid(), "org.example.editor"};
    EXPECT_EQ(applications_.running(client.pid()), expected);
    EXPECT_EQ(applications_.running("org.example.editor"), std::vector{expected});
    EXPECT_EQ(applications_.displayName("org.example.editor"), "Example Editor");
}

TEST_F(ApplicationsTest, WithoutADesktopFileTheClassDoes) {
    ClickClient client(desktop_);
    client.open({.className = "Homemade"});
    ASSERT_TRUE(turnUntilRunning(client.pid()));
    EXPECT_EQ(applications_.running(client.pid()), (RunningApplication{client.pid(), "Homemade"}));
    EXPECT_EQ(applications_.running("Homemade").size(), 1U);
    EXPECT_EQ(applications_.displayName("Homemade"), std::nullopt);
}

TEST_F(ApplicationsTest, AWindowWithoutAClassHasNoIdentifier) {
    ClickClient client(desktop_);
    client.open({.className = ""});
    ASSERT_TRUE(turnUntilRunning(client.pid()));
    EXPECT_EQ(applications_.running(client.pid())->bundleIdentifier, std::nullopt);
    EXPECT_TRUE(applications_.running("").empty());
}

TEST_F(ApplicationsTest, ProcessesWithOneIdentifierAreOneApplication) {
    ClickClient first(desktop_);
    ClickClient second(desktop_);
    second.open({.className = "Editor"});
    first.open({.className = "Editor"});
    ClickClient another(desktop_);
    another.open({.className = "Homemade"});
    ASSERT_TRUE(turnUntilRunning(first.pid()) && turnUntilRunning(second.pid()) &&
                turnUntilRunning(another.pid()));
    const std::set<std::int32_t> both{first.pid(), second.pid()};
    EXPECT_EQ(applications_.running("org.example.editor"),
              (std::vector<RunningApplication>{{*both.begin(), "org.example.editor"}}));
    EXPECT_EQ(applications_.processesWith(first.pid()), both);
    EXPECT_EQ(applications_.processesWith(second.pid()), both);
    EXPECT_EQ(applications_.processesWith(another.pid()), std::set{another.pid()});
}

TEST_F(ApplicationsTest, AnApplicationRunsWhileItsWindowsAreHidden) {
    ClickClient client(desktop_);
    const auto window = client.windowId(client.open({.className = "Homemade"}));
    ASSERT_TRUE(turnUntilRunning(client.pid()));
    xcb_unmap_window(desktop_.connection().get(), window);
    desktop_.connection().synchronize();
    EXPECT_TRUE(turnUntil([&] {
        return windows_.windowsOf({client.pid()}).empty() &&
               applications_.running("Homemade") ==
                   std::vector{RunningApplication{client.pid(), "Homemade"}};
    }));
    EXPECT_TRUE(applications_.running("Unknown").empty());
}

TEST_F(ApplicationsTest, AProcessIsOneInstanceHoweverManyWindowsItHas) {
    ClickClient client(desktop_);
    client.open({.title = "One", .className = "Editor"});
    client.open({.title = "Two", .className = "Editor"});
    ASSERT_TRUE(turnUntilRunning(client.pid()));
    EXPECT_EQ(applications_.running("org.example.editor").size(), 1U);
}

TEST_F(ApplicationsTest, AnApplicationThatHasEndedRunsNoMore) {
    auto client = std::make_unique<ClickClient>(desktop_);
    client->open({.className = "Editor"});
    ASSERT_TRUE(turnUntilRunning(client->pid()));
    client.reset();
    EXPECT_TRUE(turnUntil([this] { return applications_.running("org.example.editor").empty(); }));
}

TEST_F(ApplicationsTest, TheProgramsOwnWindowsAreItsOwn) {
    const SampleWindow window(desktop_.connection());
    window.setText("WM_CLASS", "STRING", std::string_view("editor\0Editor\0", 14));
    window.map();
    ASSERT_TRUE(turnUntilRunning(getpid()));
    EXPECT_EQ(applications_.running(getpid())->bundleIdentifier,
              applications_.ownBundleIdentifier());
    EXPECT_TRUE(applications_.running("org.example.editor").empty());
}

} // namespace

} // namespace corvane::contract
