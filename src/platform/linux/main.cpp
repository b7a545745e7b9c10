#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/CorvaneApp.h"
#include "app/Doctor.h"
#include "platform/drawing/MenuText.h"
#include "platform/linux/ButtonWatchdog.h"
#include "platform/linux/Compositor.h"
#include "platform/linux/DesktopReading.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/MissingPanel.h"
#include "platform/linux/UnixSignals.h"
#include "platform/linux/commands/CommandEndpoint.h"
#include "platform/linux/environment/UserDirectories.h"
#include "platform/linux/timing/SchedulerSlice.h"
#include "platform/posix/FileFacts.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/qt/controls/ViewStyling.h"
#include "platform/wayland/click/PressedButtonRecord.h"
#include "platform/wayland/connection/Events.h"
#include "platform/x11/click/PressedButtonRecord.h"
#include "platform/x11/connection/QtConnection.h"
#include "platform/x11/connection/ServerAbilities.h"
#include "platform/x11/connection/SingleInstance.h"
#include "platform/x11/connection/XcbEvents.h"
#include "support/Log.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QSessionManager>
#include <QTranslator>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <expected>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace {

using namespace corvane;
using namespace corvane::linux;

/// The application from its launch to its end.
CorvaneApp *runningApp = nullptr;

/// Without its server Qt ends the process on the spot, wherever the program is. The run still ends
/// in order and what the user changed is saved; nothing on the screen is left to be tidied.
void finishWorkAtExit() {
    if (runningApp != nullptr) {
        runningApp->finishWork();
        std::fflush(nullptr);
        std::_Exit(EXIT_FAILURE);
    }
}

void compositorLost() {
    std::fputs("corvane: the connection to the compositor is lost\n", stderr);
    std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe)
}

void serverLost() {
    std::fputs("corvane: the connection to the X server is lost\n", stderr);
    std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe)
}

void logRelease(bool wasDown) {
    if (wasDown) {
        log("Released the mouse button after an unexpected end");
    }
}

/// Where both the program and its watchdog were killed, the button is still down.
void releaseButtonLeftDown(const x11::XcbConnection &server) {
    logRelease(wayland::releaseRecordedButton());
    logRelease(x11::releaseRecordedButtons(server, std::nullopt));
}

/// The compositor first: it works also where XWayland hangs.
void releaseButtonOf(pid_t owner) {
    logRelease(wayland::releaseRecordedButton());
    if (const auto server = x11::XcbConnection::open()) {
        logRelease(x11::releaseRecordedButtons(**server, owner));
    }
}

/// The Wayland compositor behind an X server, if it lets programs click; null else.
std::unique_ptr<wayland::Events> compositorAround(const x11::XcbConnection &server) {
    auto compositor = x11::isInsideWayland(server) ? connectToCompositor() : nullptr;
    return compositor ? std::make_unique<wayland::Events>(std::move(compositor), compositorLost)
                      : nullptr;
}

/// The toolkit's own texts, such as a text field's menu, in the user's language; the system's
/// messages, which go to standard output and the log, in English.
void useUserLanguage(QTranslator &toolkitTexts) {
    if (toolkitTexts.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&toolkitTexts);
    }
    std::setlocale(LC_MESSAGES, "C"); // NOLINT(concurrency-mt-unsafe)
}

/// Ends a process that has talked on the message bus. The toolkit's thread for it may still be at
/// work, and must not meet the end of what it works with.
[[noreturn]] void endAtOnce(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

/// Whether Corvane starts with a session is for its login item to say: one that is restored does
/// not start it once more.
void startOnlyAsSet(QSessionManager &session) {
    session.setRestartHint(QSessionManager::RestartNever);
}

/// The right to be the Corvane of this display, or else the reply of the one that has it. That may
/// be about to end, or only just starting: then it does not answer yet and is waited for.
std::expected<std::unique_ptr<x11::SingleInstance>, CommandReply>
claimInstance(const x11::XcbConnection &connection, const CommandLine &commandLine) {
    constexpr int mostAttempts = 250;
    constexpr std::chrono::milliseconds pause{20};
    // Nothing is shown at login.
    const CommandRequest request =
        commandLine.cause == LaunchCause::login ? CommandRequest{"status"} : commandLine.words;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        if (auto instance = x11::SingleInstance::claim(connection)) {
            return instance;
        }
        if (const auto reply = callRunning(request)) {
            return std::unexpected(*reply);
        }
        std::this_thread::sleep_for(pause);
    }
    return std::unexpected(noReply());
}

int runApp(x11::XcbEvents &events, std::unique_ptr<x11::XcbConnection> windowConnection,
           wayland::Events *compositor, const CommandLine &commandLine) {
    LinuxPlatform platform(events, std::move(windowConnection), compositor, commandLine.words);
    CorvaneApp app(platform);
    MissingPanel missingPanel(platform, app.sharedServices(), app.appDelegate());
    platform.whenPermissionChanges([&app] { app.appDelegate().permissionChanged(); });
    runningApp = &app;
    // Registered last, it runs before the toolkit's globals are destroyed, with which threads work.
    std::atexit(finishWorkAtExit); // NOLINT(cert-err33-c)
    app.appDelegate().applicationDidFinishLaunching(
        [&missingPanel, &commandLine] { missingPanel.await(commandLine.cause); });
    const int status = QApplication::exec();
    app.appDelegate().applicationWillTerminate();
    runningApp = nullptr;
    return status;
}

int runProgram(int argc, char **argv, const CommandLine &commandLine) {
    auto connection = x11::XcbConnection::open();
    if (!connection) {
        return print(noDisplay(isWaylandSession()));
    }
    const ButtonWatchdog watchdog(releaseButtonOf);
    requestSchedulerSlice();
    // In a Wayland session too, the program is an X client.
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(QStringLiteral("corvane"));
    QApplication::setDesktopFileName(QStringLiteral("corvane"));
    QTranslator toolkitTexts;
    useUserLanguage(toolkitTexts);
    QObject::connect(&application, &QApplication::saveStateRequest, startOnlyAsSet);
    x11::dropButtonReportsOfKeyboard();
    qt::usePlaceholderColourOfFields();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/AppIcon.svg")));

    x11::XcbEvents events(std::move(*connection), serverLost);
    const auto instance = claimInstance(events.connection(), commandLine);
    if (!instance) {
        std::puts("Corvane is running already.");
        endAtOnce(print({.result = instance.error().result, .error = instance.error().error}));
    }
    releaseButtonLeftDown(events.connection());
    const UnixSignals signals([] { QApplication::exit(EXIT_SUCCESS); });
    auto windowConnection = events.connection().openAnother();
    if (!windowConnection) {
        serverLost();
    }
    const auto compositor = compositorAround(events.connection());
    return runApp(events, std::move(*windowConnection), compositor.get(), commandLine);
}

int runLaunch(int argc, char **argv, const CommandLine &commandLine) {
    const auto reply = callRunning(commandLine.words);
    return reply ? print(*reply) : runProgram(argc, argv, commandLine);
}

CommandReply examine(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    posix::PosixFileSystem files;
    return diagnose(readDesktopFacts(startStopKey),
                    withContents(posix::readFileFacts(filesOfCorvane(files, homeDirectory())),
                                 files, homeDirectory()),
                    callRunning({"status", "--json"}));
}

} // namespace

int main(int argc, char **argv) {
    freedesktop::preventBusLaunch();
    freedesktop::surviveLostBuses();
    const auto commandLine =
        CommandLine::parse(CommandRequest(argv + std::min(argc, 1), argv + argc),
                           {.version = CORVANE_VERSION " (" CORVANE_BUILD_NUMBER ")",
                            .hotKeyName = drawing::hotKeyText(startStopKey)});
    switch (commandLine.request) {
    case CommandLine::Request::reply:
        return print(commandLine.reply);
    case CommandLine::Request::command:
        return print(callRunning(commandLine.words).value_or(nothingRunning()));
    case CommandLine::Request::launch:
        return runLaunch(argc, argv, commandLine);
    case CommandLine::Request::diagnose:
        endAtOnce(print(examine(argc, argv)));
    case CommandLine::Request::run:
        break;
    }
    return runProgram(argc, argv, commandLine);
}
