#include "app/Doctor.h"

#include "support/Log.h"
#include "support/recorder/MemoryFileSystem.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A desktop on which everything works.
const DesktopFacts goodDesktop{.displayServer = DisplayServer::x11,
                               .displayName = ":0",
                               .takesClicks = true,
                               .hotKey = HotKeyState::free,
                               .hotKeyName = "Super+Shift+Y",
                               .statusArea = StatusArea::panel,
                               .hasCompositor = true,
                               .windowManager = "Openbox"};

const std::vector<FileFact> goodFiles{{.path = "/home/user/.config/corvane"}};

CommandReply running(const std::string &status, bool isHotkeyRegistered,
                     bool isAccessibilityGranted = true) {
    const auto text = [](bool value) { return value ? "true" : "false"; };
    return {.output = R"({"status": ")" + status + R"(", "isHotkeyRegistered": )" +
                      text(isHotkeyRegistered) + R"(, "isAccessibilityGranted": )" +
                      text(isAccessibilityGranted) + "}"};
}

CommandReply diagnose(const DesktopFacts &desktop,
                      const std::optional<CommandReply> &status = std::nullopt) {
    return corvane::diagnose(desktop, goodFiles, status);
}

TEST(DoctorTest, ReportsAGoodDesktopLineByLine) {
    EXPECT_EQ(
        diagnose(goodDesktop),
        (CommandReply{.output = "[ok]      Corvane: It is not running.\n"
                                "[ok]      Display: Corvane is on the X server :0.\n"
                                "[ok]      Clicks: They reach other applications.\n"
                                "[ok]      Hot key: It is free for Corvane.\n"
                                "[ok]      Menu: A panel shows Corvane's symbol.\n"
                                "[ok]      Compositor: One is running: outlines and ripples are "
                                "translucent.\n"
                                "[ok]      Windows: Openbox tells all that Corvane asks of it.\n"
                                "[ok]      Files: Settings, profiles and log can be read and "
                                "written.\n"}));
}

TEST(DoctorTest, WhereNobodyTellsWhoHasTheHotKeyThatIsSaid) {
    DesktopFacts desktop{
        .displayServer = DisplayServer::macos, .hotKey = HotKeyState::unknown, .hotKeyName = "⇧⌘Y"};
    constexpr const char *unknown =
        "[ok]      Hot key: Whether another program takes ⇧⌘Y first cannot be known: press it.";
    EXPECT_THAT(diagnose(desktop).output, HasSubstr(unknown));
    EXPECT_THAT(diagnose(desktop, running("idle", true)).output, HasSubstr(unknown));
    EXPECT_THAT(diagnose(desktop, running("idle", false)).output, Not(HasSubstr(unknown)));
}

TEST(DoctorTest, LeavesOutWhatPlaysNoPart) {
    const auto report = diagnose({.displayServer = DisplayServer::macos}).output;
    EXPECT_THAT(report, HasSubstr("Display: Corvane is on the desktop of macOS."));
    for (const char *subject : {"Hot key", "Menu", "Compositor"}) {
        EXPECT_THAT(report, Not(HasSubstr(subject)));
    }
}

TEST(DoctorTest, WithoutTheRightToClickSomethingIsMissing) {
    DesktopFacts desktop = goodDesktop;
    desktop.takesClicks = false;
    EXPECT_EQ(diagnose(desktop).result, CommandResult::refused);
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("[missing] Clicks: The X server does not "
                                                    "offer XTEST"));
}

/// The permission of the terminal, in which the doctor runs, says nothing about Corvane's.
TEST(DoctorTest, OnMacosOnlyTheRunningProgramKnowsItsPermission) {
    DesktopFacts desktop = goodDesktop;
    desktop.displayServer = DisplayServer::macos;
    desktop.takesClicks.reset();
    EXPECT_EQ(diagnose(desktop).result, CommandResult::done);
    EXPECT_THAT(diagnose(desktop).output,
                HasSubstr("[ok]      Clicks: Only a running Corvane can tell"));
    const auto refused = diagnose(desktop, running("idle", true, false));
    EXPECT_EQ(refused.result, CommandResult::refused);
    EXPECT_THAT(refused.output, HasSubstr("System Settings, Privacy & Security"));
    EXPECT_THAT(diagnose(desktop, running("idle", true)).output,
                HasSubstr("[ok]      Clicks: They reach other applications."));
}

TEST(DoctorTest, OnMacosTitlesOfWindowsTakeTheAccessibilityPermission) {
    const DesktopFacts desktop{.displayServer = DisplayServer::macos};
    EXPECT_THAT(diagnose(desktop).output,
                HasSubstr("[ok]      Windows: Only a running Corvane can tell"));
    EXPECT_THAT(diagnose(desktop, running("idle", true)).output,
                HasSubstr("[ok]      Windows: Corvane reads their titles through Accessibility. "
                          "It need not be allowed to record the screen."));
    EXPECT_THAT(diagnose(desktop, running("idle", true, false)).output,
                HasSubstr("[limited] Windows: Without the Accessibility permission they have "
                          "neither titles nor places"));
    EXPECT_THAT(diagnose(goodDesktop).output, Not(HasSubstr("titles")));
}

TEST(DoctorTest, NamesTheHotKeyAsTheSystemDoes) {
    DesktopFacts desktop = goodDesktop;
    desktop.hotKey = HotKeyState::taken;
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("Another program has Super+Shift+Y."));
    desktop.hotKeyName = "⇧⌘Y";
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("Another program has ⇧⌘Y."));
}

TEST(DoctorTest, ThePermissionOfTheRunningProgramCounts) {
    DesktopFacts desktop = goodDesktop;
    desktop.takesClicks = false;
    EXPECT_EQ(diagnose(desktop, running("idle", true)).result, CommandResult::done);
    EXPECT_EQ(diagnose(goodDesktop, running("idle", true, false)).result, CommandResult::refused);
}

TEST(DoctorTest, NothingIsCalledGrantedUnderXWayland) {
    DesktopFacts desktop = goodDesktop;
    desktop.displayServer = DisplayServer::xwayland;
    desktop.isWaylandSession = true;
    desktop.takesClicks = false;
    const auto report = diagnose(desktop);
    EXPECT_EQ(report.result, CommandResult::refused);
    EXPECT_THAT(report.output, HasSubstr("[missing] Display: This is a Wayland session, with "
                                         "XWayland (:0) for X programs."));
    EXPECT_THAT(report.output, HasSubstr("on Xorg"));
    EXPECT_THAT(report.output, HasSubstr("[missing] Clicks: "));
    EXPECT_THAT(report.output, HasSubstr("[limited] Hot key: It is heard only while"));
}

TEST(DoctorTest, ACompositorThatLetsProgramsClickIsADesktop) {
    DesktopFacts desktop = goodDesktop;
    desktop.displayServer = DisplayServer::wayland;
    desktop.isWaylandSession = true;
    const auto report = diagnose(desktop);
    EXPECT_EQ(report.result, CommandResult::done);
    EXPECT_THAT(report.output, HasSubstr("[ok]      Display: Corvane is in a Wayland session"));
    EXPECT_THAT(report.output, HasSubstr("[ok]      Hot key: "));
}

DesktopFacts desktopThatAsks() {
    DesktopFacts desktop = goodDesktop;
    desktop.displayServer = DisplayServer::wayland;
    desktop.takesClicks = std::nullopt;
    desktop.needsConsent = true;
    desktop.hotKey = HotKeyState::notOffered;
    return desktop;
}

TEST(DoctorTest, OnlyTheRunningProgramKnowsHowTheUserHasAnsweredTheDesktop) {
    EXPECT_THAT(diagnose(desktopThatAsks()).output,
                HasSubstr("[ok]      Clicks: The desktop asks"));
    const auto granted = diagnose(desktopThatAsks(), running("idle", false, true));
    EXPECT_EQ(granted.result, CommandResult::done);
    EXPECT_THAT(granted.output, HasSubstr("[ok]      Clicks: They reach other"));
    EXPECT_THAT(granted.output, HasSubstr("[limited] Hot key: This compositor gives"));
    const auto refused = diagnose(desktopThatAsks(), running("idle", false, false));
    EXPECT_EQ(refused.result, CommandResult::refused);
    EXPECT_THAT(refused.output, HasSubstr("[missing] Clicks: You have not allowed"));
}

TEST(DoctorTest, ACompositorMayHaveNeitherHotKeysNorWindowsForPrograms) {
    DesktopFacts desktop = goodDesktop;
    desktop.displayServer = DisplayServer::wayland;
    desktop.hotKey = HotKeyState::notOffered;
    desktop.windowManager = "";
    const auto report = diagnose(desktop);
    EXPECT_EQ(report.result, CommandResult::done);
    EXPECT_THAT(report.output, HasSubstr("[limited] Hot key: This compositor gives"));
    EXPECT_THAT(report.output, HasSubstr("corvane toggle"));
    EXPECT_THAT(report.output, HasSubstr("[limited] Windows: This compositor tells"));
}

TEST(DoctorTest, AnXServerInsideAWaylandSessionReachesOnlyItsOwn) {
    DesktopFacts desktop = goodDesktop;
    desktop.isWaylandSession = true;
    EXPECT_EQ(diagnose(desktop).result, CommandResult::done);
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("[limited] Display: Corvane is on the X "
                                                    "server :0 and reaches the programs there"));
}

TEST(DoctorTest, SaysWhyThereIsNoDisplay) {
    for (const auto &[desktop, text] : {
             std::pair(DesktopFacts{}, "[missing] Display: There is none: DISPLAY is not set."),
             std::pair(DesktopFacts{.displayName = ":9"},
                       "[missing] Display: The display :9 cannot be reached."),
             std::pair(DesktopFacts{.displayServer = DisplayServer::waylandOnly},
                       "[missing] Display: This is a Wayland session without an X server."),
         }) {
        EXPECT_EQ(diagnose(desktop).result, CommandResult::refused);
        EXPECT_THAT(diagnose(desktop).output, HasSubstr(text));
    }
}

TEST(DoctorTest, KnowsWhoHasTheHotKey) {
    DesktopFacts desktop = goodDesktop;
    desktop.hotKey = HotKeyState::taken;
    EXPECT_THAT(diagnose(desktop).output,
                HasSubstr("[limited] Hot key: Another program has Super+Shift+Y.\n"));
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("'corvane toggle --key'"));
    EXPECT_THAT(diagnose(desktop, running("idle", true)).output,
                HasSubstr("[ok]      Hot key: It belongs to the running Corvane."));
    EXPECT_THAT(diagnose(desktop, running("idle", false)).output,
                HasSubstr("[limited] Hot key: Another program has"));
    desktop.hotKey = HotKeyState::noSuchKey;
    EXPECT_THAT(diagnose(desktop).output,
                HasSubstr("[limited] Hot key: The keyboard has no key for it."));
}

TEST(DoctorTest, SaysWhatTheRunningProgramDoes) {
    EXPECT_THAT(diagnose(goodDesktop, running("running", true)).output,
                HasSubstr("Corvane: It is running, and clicking."));
    EXPECT_THAT(diagnose(goodDesktop, running("idle", true)).output,
                HasSubstr("Corvane: It is running.\n"));
    EXPECT_THAT(diagnose(goodDesktop, noReply()).output,
                HasSubstr("[limited] Corvane: It is running, but does not answer."));
    EXPECT_THAT(diagnose(goodDesktop, CommandReply{.output = "[]"}).output,
                HasSubstr("does not answer"));
}

TEST(DoctorTest, WithoutAPanelItNamesTheOtherWays) {
    DesktopFacts desktop = goodDesktop;
    desktop.statusArea = StatusArea::none;
    EXPECT_EQ(diagnose(desktop).result, CommandResult::done);
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("[limited] Menu: No panel"));
}

TEST(DoctorTest, ACompositorIsNotNeeded) {
    DesktopFacts desktop = goodDesktop;
    desktop.hasCompositor = false;
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("[ok]      Compositor: None is running"));
}

TEST(DoctorTest, NamesWhatTheWindowManagerKeepsToItself) {
    DesktopFacts desktop = goodDesktop;
    desktop.missingHints = {"_NET_FRAME_EXTENTS", "_NET_ACTIVE_WINDOW"};
    EXPECT_THAT(diagnose(desktop).output,
                HasSubstr("[limited] Windows: Openbox does not offer _NET_FRAME_EXTENTS, "
                          "_NET_ACTIVE_WINDOW: "));
    desktop.windowManager = "";
    EXPECT_THAT(diagnose(desktop).output, HasSubstr("[limited] Windows: No window manager"));
}

TEST(DoctorTest, NamesEveryFileThatCannotBeUsed) {
    const auto report = corvane::diagnose(
        goodDesktop,
        {{.path = "/a"}, {.path = "/b", .isReadable = false}, {.path = "/c", .isWritable = false}},
        std::nullopt);
    EXPECT_EQ(report.result, CommandResult::refused);
    EXPECT_THAT(report.output, HasSubstr("[missing] Files: /b cannot be read.\n"));
    EXPECT_THAT(report.output, HasSubstr("[missing] Files: /c cannot be written.\n"));
    EXPECT_THAT(report.output, Not(HasSubstr("/a")));
}

TEST(DoctorTest, SaysWhatIsWrongWithDamagedFilesAndWhatBecomesOfThem) {
    testing::MemoryFileSystem files;
    files.put("/home/user/.config/corvane/config.json", "[]");
    files.put("/home/user/.config/corvane/profiles.json", R"({"profiles" : 7})");
    std::vector<FileFact> facts;
    for (const auto &path : filesOfCorvane(files, "/home/user")) {
        facts.push_back({.path = path});
    }
    const auto report =
        corvane::diagnose(goodDesktop, withContents(facts, files, "/home/user"), std::nullopt);
    EXPECT_EQ(report.result, CommandResult::done);
    for (const std::string name : {"config.json", "profiles.json"}) {
        EXPECT_THAT(report.output,
                    ::testing::ContainsRegex("\\[limited\\] Files: /home/user/.config/corvane/" +
                                             name + " is damaged and cannot be loaded: .+\n"));
        EXPECT_THAT(report.output, HasSubstr("The next save keeps it as " + name + "~ "));
    }
    EXPECT_THAT(report.output, Not(HasSubstr("[ok]      Files")));
}

TEST(DoctorTest, FilesThatAreSoundOrNotThereAreNotDamaged) {
    testing::MemoryFileSystem files;
    files.put("/home/user/.config/corvane/config.json",
              R"({"clickRate" : 7, "maxClicks" : 1e999})");
    const auto facts = withContents({{.path = "/home/user/.config/corvane/config.json"},
                                     {.path = "/home/user/.config/corvane/profiles.json"},
                                     {.path = logPath}},
                                    files, "/home/user");
    for (const FileFact &fact : facts) {
        EXPECT_EQ(fact.damage, "") << fact.path;
    }
}

TEST(DoctorTest, LooksAtAllFilesOfCorvane) {
    testing::MemoryFileSystem files;
    EXPECT_EQ(filesOfCorvane(files, "/home/user"),
              (std::vector<std::filesystem::path>{
                  "/home/user/.config/corvane", "/home/user/.config/corvane/config.json",
                  "/home/user/.config/corvane/profiles.json", logPath}));
}

TEST(DoctorTest, AStartWithoutADisplayRefersToIt) {
    EXPECT_EQ(noDisplay(false).error, "no X display can be reached; is DISPLAY set?");
    EXPECT_THAT(noDisplay(true).error, HasSubstr("'corvane doctor'"));
}

} // namespace
} // namespace corvane
