#include "app/AppDelegate.h"
#include "app/CorvaneApp.h"
#include "platform/linux/ButtonGuard.h"
#include "platform/linux/ButtonMark.h"
#include "platform/linux/CommandLine.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/PlaceholderColour.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/UnixSignals.h"
#include "platform/linux/XcbEvents.h"
#include "support/Log.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <span>

namespace {

using namespace corvane;
using namespace corvane::x11;

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

void serverLost() {
    std::fputs("corvane: the connection to the X server is lost\n", stderr);
    std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe)
}

void startedAgain() {
    if (runningApp != nullptr) {
        runningApp->appDelegate().applicationShouldHandleReopen();
    }
}

/// Where both the program and its guard were killed, the button is still down.
void releaseButtonLeftDown(const XcbConnection &connection) {
    if (releaseMarkedButtons(connection)) {
        log("Released the mouse button after an unexpected end");
    }
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

int runApp(XcbEvents &events) {
    LinuxPlatform platform(events);
    CorvaneApp app(platform);
    runningApp = &app;
    app.appDelegate().applicationDidFinishLaunching();
    const int status = QApplication::exec();
    app.appDelegate().applicationWillTerminate();
    runningApp = nullptr;
    return status;
}

int runProgram(int argc, char **argv) {
    auto connection = XcbConnection::open();
    if (!connection) {
        std::fputs("corvane: no X display can be reached; is DISPLAY set?\n", stderr);
        return EXIT_FAILURE;
    }
    const ButtonGuard guard;
    // In a Wayland session too, the program is an X client.
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(QStringLiteral("corvane"));
    QApplication::setDesktopFileName(QStringLiteral("corvane"));
    QTranslator toolkitTexts;
    useUserLanguage(toolkitTexts);
    usePlaceholderColourOfFields();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/AppIcon.svg")));

    XcbEvents events(std::move(*connection), serverLost);
    const auto instance = SingleInstance::claim(events, startedAgain);
    if (!instance) {
        std::puts("Corvane is running already.");
        return EXIT_SUCCESS;
    }
    releaseButtonLeftDown(events.connection());
    const UnixSignals signals([] { QApplication::exit(EXIT_SUCCESS); });
    std::atexit(finishWorkAtExit); // NOLINT(cert-err33-c)
    return runApp(events);
}

} // namespace

int main(int argc, char **argv) {
    const std::span<const char *const> arguments(argv, static_cast<std::size_t>(argc));
    const auto commandLine =
        CommandLine::parse(arguments.empty() ? arguments : arguments.subspan(1));
    switch (commandLine.request) {
    case CommandLine::Request::answer:
        std::fputs(commandLine.text.c_str(), stdout);
        return EXIT_SUCCESS;
    case CommandLine::Request::refuse:
        std::fputs(commandLine.text.c_str(), stderr);
        return 2;
    case CommandLine::Request::run:
        break;
    }
    return runProgram(argc, argv);
}
