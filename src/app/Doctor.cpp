#include "app/Doctor.h"

#include "model/Json.h"
#include "platform/FileSystem.h"
#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "support/Log.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace corvane {

namespace {

enum class Grade { works, limited, missing };

/// One line of the report.
struct Finding {
    Grade grade = Grade::works;
    std::string subject;
    std::string statement;
    /// Empty where nothing is to be done.
    std::string remedy{};
};

constexpr const char *chooseX11 =
    "Log out, choose a session whose name ends in \"on Xorg\" or \"X11\" on the login screen "
    "(often behind the gear button), and log in again.";
constexpr const char *bindKey =
    "Let a keyboard shortcut of your desktop run 'corvane toggle --key', or use the menu.";

/// What the running Corvane says of itself.
struct Running {
    std::string status;
    bool isAccessibilityGranted = false;
    bool isHotkeyRegistered = false;
};

std::optional<Running> readRunning(const std::optional<CommandReply> &reply) {
    if (!reply || reply->result != CommandResult::done) {
        return std::nullopt;
    }
    const auto json = nlohmann::json::parse(reply->output, nullptr, false);
    if (!json.is_object()) {
        return std::nullopt;
    }
    return Running{.status = json.value("status", std::string()),
                   .isAccessibilityGranted = json.value("isAccessibilityGranted", false),
                   .isHotkeyRegistered = json.value("isHotkeyRegistered", false)};
}

Finding programFinding(const std::optional<CommandReply> &reply,
                       const std::optional<Running> &running) {
    if (running) {
        return {.subject = "Corvane",
                .statement = running->status == "running" ? "It is running, and clicking."
                                                          : "It is running."};
    }
    if (reply) {
        return {.grade = Grade::limited,
                .subject = "Corvane",
                .statement = "It is running, but does not answer.",
                .remedy = "End it and start it again."};
    }
    return {.subject = "Corvane", .statement = "It is not running."};
}

Finding x11Finding(const DesktopFacts &desktop) {
    const std::string display = "the X server " + desktop.displayName;
    if (!desktop.isWaylandSession) {
        return {.subject = "Display", .statement = "Corvane is on " + display + "."};
    }
    return {.grade = Grade::limited,
            .subject = "Display",
            .statement = "Corvane is on " + display +
                         " and reaches the programs there, but none of those in the Wayland "
                         "session around it.",
            .remedy = chooseX11};
}

Finding displayFinding(const DesktopFacts &desktop) {
    switch (desktop.displayServer) {
    case DisplayServer::macos:
        return {.subject = "Display", .statement = "Corvane is on the desktop of macOS."};
    case DisplayServer::x11:
        return x11Finding(desktop);
    case DisplayServer::xwayland:
        return {.grade = Grade::missing,
                .subject = "Display",
                .statement = "This is a Wayland session, with XWayland (" + desktop.displayName +
                             ") for X programs. Clicks could reach those programs only, and "
                             "would reach the wrong one while the cursor is over any other "
                             "window. This compositor offers programs no way to click, so Corvane "
                             "does not click here. It does on KDE Plasma, GNOME, sway and others "
                             "of sway's kind.",
                .remedy = chooseX11};
    case DisplayServer::wayland:
        return {.subject = "Display",
                .statement = "Corvane is in a Wayland session and clicks through its compositor. "
                             "Its own windows are on XWayland (" +
                             desktop.displayName + ")."};
    case DisplayServer::waylandOnly:
        return {.grade = Grade::missing,
                .subject = "Display",
                .statement = "This is a Wayland session without an X server. Corvane cannot "
                             "start here.",
                .remedy = chooseX11};
    case DisplayServer::none:
        break;
    }
    return {.grade = Grade::missing,
            .subject = "Display",
            .statement = desktop.displayName.empty()
                             ? "There is none: DISPLAY is not set."
                             : "The display " + desktop.displayName + " cannot be reached.",
            .remedy = "Run Corvane inside a desktop session."};
}

/// The running Corvane knows best: on macOS the right is each program's own.
Finding consentFinding(const std::optional<Running> &running) {
    if (!running) {
        return {.subject = "Clicks",
                .statement = "The desktop asks you at Corvane's start whether they may reach other "
                             "applications."};
    }
    return {.grade = Grade::missing,
            .subject = "Clicks",
            .statement = "You have not allowed them, or not any more.",
            .remedy = "Start clicking: Corvane then says what to choose, and the desktop asks."};
}

Finding clicksFinding(const DesktopFacts &desktop, const std::optional<Running> &running) {
    if (desktop.needsConsent && !(running && running->isAccessibilityGranted)) {
        return consentFinding(running);
    }
    if (!running && !desktop.takesClicks) {
        return {.subject = "Clicks",
                .statement = "Only a running Corvane can tell whether they reach other "
                             "applications."};
    }
    if (running ? running->isAccessibilityGranted : *desktop.takesClicks) {
        return {.subject = "Clicks", .statement = "They reach other applications."};
    }
    if (desktop.displayServer == DisplayServer::macos) {
        return {.grade = Grade::missing,
                .subject = "Clicks",
                .statement = "Corvane has not been granted the Accessibility permission.",
                .remedy = "Switch Corvane on in System Settings, Privacy & Security, "
                          "Accessibility."};
    }
    if (desktop.displayServer == DisplayServer::xwayland) {
        return {.grade = Grade::missing,
                .subject = "Clicks",
                .statement = "They do not reach the applications of a Wayland session."};
    }
    return {.grade = Grade::missing,
            .subject = "Clicks",
            .statement = "The X server does not offer XTEST, through which programs click.",
            .remedy = "Start the X server with XTEST enabled; its command line or configuration "
                      "turns it off."};
}

/// Among X programs in a Wayland session, a key is only heard while one of them has the keyboard.
Finding hotKeyInWayland() {
    return {.grade = Grade::limited,
            .subject = "Hot key",
            .statement = "It is heard only while a program under XWayland has the keyboard."};
}

Finding hotKeyTaken(const std::string &hotKeyName, const char *doubt) {
    return {.grade = Grade::limited,
            .subject = "Hot key",
            .statement = "Another program has " + hotKeyName + doubt + ".",
            .remedy = std::string("Take the key away from that program and start Corvane again. "
                                  "Or: ") +
                      bindKey};
}

Finding hotKeyNotOffered() {
    return {.grade = Grade::limited,
            .subject = "Hot key",
            .statement = "This compositor gives programs no hot keys.",
            .remedy = bindKey};
}

Finding hotKeyFinding(const DesktopFacts &desktop, const std::optional<Running> &running) {
    if (desktop.displayServer == DisplayServer::xwayland) {
        return hotKeyInWayland();
    }
    if (desktop.hotKey == HotKeyState::notOffered) {
        return hotKeyNotOffered();
    }
    if (desktop.hotKey == HotKeyState::unknown && (!running || running->isHotkeyRegistered)) {
        return {.subject = "Hot key",
                .statement = "Whether another program takes " + desktop.hotKeyName +
                             " first cannot be known: press it."};
    }
    if (running && running->isHotkeyRegistered) {
        return {.subject = "Hot key", .statement = "It belongs to the running Corvane."};
    }
    if (running) {
        return hotKeyTaken(desktop.hotKeyName, ", or the keyboard has no such key");
    }
    switch (*desktop.hotKey) {
    case HotKeyState::free:
        return {.subject = "Hot key", .statement = "It is free for Corvane."};
    case HotKeyState::taken:
        return hotKeyTaken(desktop.hotKeyName, "");
    case HotKeyState::notOffered:
    case HotKeyState::noSuchKey:
    case HotKeyState::unknown:
        break;
    }
    return {.grade = Grade::limited,
            .subject = "Hot key",
            .statement = "The keyboard has no key for it.",
            .remedy = bindKey};
}

Finding statusAreaFinding(StatusArea area) {
    switch (area) {
    case StatusArea::menuBar:
        return {.subject = "Menu", .statement = "Corvane's symbol is in the menu bar."};
    case StatusArea::panel:
    case StatusArea::systemTray:
        return {.subject = "Menu", .statement = "A panel shows Corvane's symbol."};
    case StatusArea::none:
        break;
    }
    return {.grade = Grade::limited,
            .subject = "Menu",
            .statement = "No panel shows status symbols, so Corvane has no menu there. The "
                         "settings window opens at the start instead.",
            .remedy = "Use the commands, the hot key or the actions of Corvane's entry among the "
                      "applications. Or add a status area: a panel's plug-in, or on GNOME the "
                      "extension \"AppIndicator and KStatusNotifierItem Support\"."};
}

Finding compositorFinding(bool isThere) {
    return {.subject = "Compositor",
            .statement = isThere ? "One is running: outlines and ripples are translucent."
                                 : "None is running: outlines and ripples are cut out sharply, "
                                   "and work."};
}

Finding windowManagerFinding(const std::string &windowManager, const DesktopFacts &desktop) {
    if (windowManager.empty() && desktop.displayServer == DisplayServer::wayland) {
        return {.grade = Grade::limited,
                .subject = "Windows",
                .statement = "This compositor tells programs nothing of each other's windows: "
                             "zones cannot follow windows."};
    }
    if (windowManager.empty()) {
        return {.grade = Grade::limited,
                .subject = "Windows",
                .statement = "No window manager tells which windows there are: zones cannot "
                             "follow windows.",
                .remedy = "Start a window manager that follows the EWMH standard."};
    }
    if (desktop.missingHints.empty()) {
        return {.subject = "Windows",
                .statement = windowManager + " tells all that Corvane asks of it."};
    }
    std::string hints;
    for (const std::string &hint : desktop.missingHints) {
        hints += (hints.empty() ? "" : ", ") + hint;
    }
    return {.grade = Grade::limited,
            .subject = "Windows",
            .statement = windowManager + " does not offer " + hints +
                         ": zones may not follow windows exactly.",
            .remedy = "Use a window manager that offers them, if you anchor zones to windows."};
}

/// The window server names other programs' windows only to those that may record the screen;
/// Corvane reads the titles through Accessibility instead.
Finding windowTitlesFinding(const std::optional<Running> &running) {
    if (!running) {
        return {.subject = "Windows",
                .statement = "Only a running Corvane can tell whether it may read their titles."};
    }
    if (running->isAccessibilityGranted) {
        return {.subject = "Windows",
                .statement = "Corvane reads their titles through Accessibility. It need not be "
                             "allowed to record the screen."};
    }
    return {.grade = Grade::limited,
            .subject = "Windows",
            .statement = "Without the Accessibility permission they have neither titles nor "
                         "places: zones cannot follow windows."};
}

std::vector<Finding> fileFindings(const std::vector<FileFact> &files) {
    std::vector<Finding> findings;
    for (const FileFact &file : files) {
        if (!file.isReadable || !file.isWritable) {
            findings.push_back(
                {.grade = Grade::missing,
                 .subject = "Files",
                 .statement =
                     file.path.string() + " cannot be " + (file.isWritable ? "read." : "written."),
                 .remedy = "It has to belong to you and be writable. Change that, or move it out "
                           "of the way."});
        }
    }
    for (const FileFact &file : files) {
        if (!file.damage.empty()) {
            findings.push_back(
                {.grade = Grade::limited,
                 .subject = "Files",
                 .statement =
                     file.path.string() + " is damaged and cannot be loaded: " + file.damage,
                 .remedy = "Corvane starts without it. The next save keeps it as " +
                           file.path.filename().string() +
                           "~ and writes a new file. Until then it can be repaired."});
        }
    }
    if (findings.empty()) {
        findings.push_back({.subject = "Files",
                            .statement = "Settings, profiles and log can be read and written."});
    }
    return findings;
}

/// Empty for a success.
template <typename Value>
std::string failureOf(const Outcome<Value> &outcome) {
    return outcome ? std::string() : outcome.error().description;
}

std::string lineOf(const Finding &finding) {
    const char *mark = finding.grade == Grade::works     ? "[ok]      "
                       : finding.grade == Grade::limited ? "[limited] "
                                                         : "[missing] ";
    const std::string statement = mark + finding.subject + ": " + finding.statement + "\n";
    return finding.remedy.empty() ? statement : statement + "          " + finding.remedy + "\n";
}

} // namespace

CommandReply diagnose(const DesktopFacts &desktop, const std::vector<FileFact> &files,
                      const std::optional<CommandReply> &runningStatus) {
    const auto running = readRunning(runningStatus);
    std::vector<Finding> findings{programFinding(runningStatus, running), displayFinding(desktop)};
    if (desktop.takesClicks || desktop.needsConsent ||
        desktop.displayServer == DisplayServer::macos) {
        findings.push_back(clicksFinding(desktop, running));
    }
    if (desktop.hotKey) {
        findings.push_back(hotKeyFinding(desktop, running));
    }
    if (desktop.statusArea) {
        findings.push_back(statusAreaFinding(*desktop.statusArea));
    }
    if (desktop.hasCompositor) {
        findings.push_back(compositorFinding(*desktop.hasCompositor));
    }
    if (desktop.windowManager) {
        findings.push_back(windowManagerFinding(*desktop.windowManager, desktop));
    }
    if (desktop.displayServer == DisplayServer::macos) {
        findings.push_back(windowTitlesFinding(running));
    }
    std::ranges::move(fileFindings(files), std::back_inserter(findings));

    CommandReply report;
    for (const Finding &finding : findings) {
        report.output += lineOf(finding);
    }
    if (std::ranges::find(findings, Grade::missing, &Finding::grade) != findings.end()) {
        report.result = CommandResult::refused;
    }
    return report;
}

CommandReply noDisplay(bool isWaylandSession) {
    return {.result = CommandResult::refused,
            .error = isWaylandSession ? "this Wayland session has no X display, which Corvane "
                                        "needs; 'corvane doctor' tells what to do"
                                      : "no X display can be reached; is DISPLAY set?"};
}

std::vector<FileFact> withContents(std::vector<FileFact> facts, platform::FileSystem &files,
                                   const std::filesystem::path &home) {
    const auto settings = ConfigService(files, home).configFileURL();
    const auto profiles = ProfileService(files, home).profilesFileURL();
    for (FileFact &fact : facts) {
        const auto text = files.readFile(fact.path);
        if (text && fact.path == settings) {
            fact.damage = failureOf(decodeConfig(*text));
        } else if (text && fact.path == profiles) {
            fact.damage = failureOf(decodeProfileStore(*text));
        }
    }
    return facts;
}

std::vector<std::filesystem::path> filesOfCorvane(platform::FileSystem &files,
                                                  const std::filesystem::path &home) {
    const std::filesystem::path settings = ConfigService(files, home).configFileURL();
    return {settings.parent_path(), settings, ProfileService(files, home).profilesFileURL(),
            logPath};
}

} // namespace corvane
