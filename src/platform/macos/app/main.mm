#include "app/CommandLine.h"
#include "app/CorvaneApp.h"
#include "app/Doctor.h"
#import "platform/macos/app/CommandEndpoint.h"
#import "platform/macos/app/CommandFolder.h"
#import "platform/macos/app/DesktopReading.h"
#import "platform/macos/app/MacAppDelegate.h"
#import "platform/macos/app/Platform.h"
#import "platform/macos/app/TerminationSignals.h"
#import "platform/macos/hotkey/HotKeys.h"
#import "platform/macos/support/EditingKeys.h"
#import "platform/macos/support/Text.h"
#include "platform/posix/FileFacts.h"
#include "platform/posix/InstanceLock.h"
#include "presentation/HotKey.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <expected>

#include <unistd.h>

namespace {

using namespace corvane;

/// The system and its development tools add options of one dash and a word, such as "-psn_0_1234".
bool isForTheSystem(const CommandRequest &words) {
    constexpr std::size_t shortOption = 2;
    return !words.empty() && words.front().starts_with('-') && !words.front().starts_with("--") &&
           words.front().size() > shortOption;
}

CommandLine readCommandLine(int argc, char **argv) {
    const CommandRequest words(argv + std::min(argc, 1), argv + argc);
    const macos::Application application;
    return CommandLine::parse(isForTheSystem(words) ? CommandRequest{} : words,
                              {.version = application.shortVersion().value_or("") + " (" +
                                          application.buildVersion().value_or("") + ")",
                               .hotKeyName = macos::hotKeyText(startStopKey)});
}

/// Where the program does not run, the system starts it for a URL of its own and hands that over.
int runLaunch(const CommandRequest &words) {
    if (const auto reply = macos::callRunning(words)) {
        return print(*reply);
    }
    NSURL *address = [NSURL URLWithString:macos::systemText(urlOfCommand(words))];
    const bool isLaunched = address != nil && [NSWorkspace.sharedWorkspace openURL:address];
    return isLaunched ? EXIT_SUCCESS : print(nothingRunning());
}

int runDoctor() {
    posix::PosixFileSystem files;
    const macos::Application application;
    const auto home = application.homeDirectory();
    return print(
        diagnose(macos::readDesktopFacts(startStopKey),
                 withContents(posix::readFileFacts(filesOfCorvane(files, home)), files, home),
                 macos::callRunning({"status", "--json"})));
}

/// The right to be the Corvane of this user, or else the reply of the one that has it, which has
/// shown itself. The system may start two at a login: as a login item, and as what was running.
std::expected<posix::InstanceLock, CommandReply> claimInstance() {
    return posix::claimInstance(macos::commandFolder() / "instance.lock",
                                [] { return macos::callRunning({}); });
}

int runProgram() {
    const auto instance = claimInstance();
    if (!instance) {
        std::puts("Corvane is running already.");
        return print({.result = instance.error().result, .error = instance.error().error});
    }
    NSApplication *application = NSApplication.sharedApplication;
    // Whether it starts with a login is for its login item to say.
    [application disableRelaunchOnLogin];
    auto platform = std::make_unique<macos::Platform>();
    auto app = std::make_unique<CorvaneApp>(*platform);
    // Held to the end: the application object holds its delegate weakly.
    NS_VALID_UNTIL_END_OF_SCOPE MacAppDelegate *delegate =
        [[MacAppDelegate alloc] initWithPlatform:std::move(platform) application:std::move(app)];
    const macos::TerminationSignals signals;
    application.delegate = delegate;
    application.mainMenu = macos::makeEditingKeys();
    // No Dock icon and no menu bar of its own.
    application.activationPolicy = NSApplicationActivationPolicyAccessory;
    [application run];
    return 0;
}

/// Starts the program in its bundle: where it was started through a link, such as one in a folder
/// of PATH, the system looks for the bundle around the link. Returns where it is in its place
/// already.
void leaveLink(char **argv) {
    NSString *started = NSBundle.mainBundle.executablePath;
    NSString *file = started.stringByResolvingSymlinksInPath;
    if (NSBundle.mainBundle.bundleIdentifier == nil && started != nil && file != nil &&
        ![file isEqualToString:started]) {
        execv(file.fileSystemRepresentation, argv);
    }
}

} // namespace

int main(int argc, char **argv) {
    @autoreleasepool {
        leaveLink(argv);
        const auto commandLine = readCommandLine(argc, argv);
        switch (commandLine.request) {
        case CommandLine::Request::reply:
            return print(commandLine.reply);
        case CommandLine::Request::command:
            return print(macos::callRunning(commandLine.words).value_or(nothingRunning()));
        case CommandLine::Request::launch:
            return runLaunch(commandLine.words);
        case CommandLine::Request::diagnose:
            return runDoctor();
        case CommandLine::Request::run:
            break;
        }
        return runProgram();
    }
}
