#include "app/CommandLine.h"
#include "app/CorvaneApp.h"
#include "app/Doctor.h"
#include "app/HotkeyService.h"
#import "platform/macos/app/CommandEndpoint.h"
#import "platform/macos/app/DesktopReading.h"
#import "platform/macos/app/MacAppDelegate.h"
#import "platform/macos/app/Platform.h"
#import "platform/macos/app/TerminationSignals.h"
#import "platform/macos/support/EditingKeys.h"
#import "platform/macos/support/Text.h"
#include "platform/posix/FileFacts.h"
#include "presentation/KeyHint.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <cstdlib>

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
                               .hotKeyName = startStopKeyHint});
}

/// Where the program does not run, the system starts it for a URL of its own and hands that over.
int runLaunch(const CommandRequest &words) {
    if (const auto answer = macos::callRunning(words)) {
        return print(*answer);
    }
    NSString *url = @"corvane:/";
    for (const std::string &word : words) {
        NSString *part = [macos::systemText(word)
            stringByAddingPercentEncodingWithAllowedCharacters:NSCharacterSet
                                                                   .alphanumericCharacterSet];
        url = [url stringByAppendingFormat:@"/%@", part];
    }
    NSURL *address = [NSURL URLWithString:url];
    const bool isLaunched = address != nil && [NSWorkspace.sharedWorkspace openURL:address];
    return isLaunched ? EXIT_SUCCESS : print(nothingRunning());
}

int runDoctor() {
    posix::PosixFileSystem files;
    const macos::Application application;
    return print(diagnose(macos::readDesktopFacts(startStopKey),
                          posix::readFileFacts(filesOfCorvane(files, application.homeDirectory())),
                          macos::callRunning({"status", "--json"})));
}

int runProgram() {
    if (macos::callRunning({})) {
        // It has shown itself. Only for a bundle that it opens itself the system sees to that.
        return print({.output = "Corvane is running already.\n"});
    }
    NSApplication *application = NSApplication.sharedApplication;
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

} // namespace

int main(int argc, char **argv) {
    @autoreleasepool {
        const auto commandLine = readCommandLine(argc, argv);
        switch (commandLine.request) {
        case CommandLine::Request::answer:
            return print(commandLine.answer);
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
