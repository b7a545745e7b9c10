#include "platform/macos/app/Alerts.h"
#include "platform/macos/app/KeyboardFocus.h"
#include "presentation/BorderlessWindow.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <functional>

namespace corvane::contract {

namespace {

const Alert question{.messageText = "Anchor to window?",
                     .informativeText = "A question of the contract tests.",
                     .buttons = {"Anchor", "No"}};

/// Answers the alert with its last button after `look` has seen it open.
AlertResponse askAndLook(std::function<void(NSWindow *)> look) {
    const auto shared = std::make_shared<std::function<void(NSWindow *)>>(std::move(look));
    NSTimer *timer = [NSTimer timerWithTimeInterval:0.1
                                            repeats:YES
                                              block:^(NSTimer *own) {
                                                if (NSWindow *window = NSApp.modalWindow) {
                                                    [own invalidate];
                                                    (*shared)(window);
                                                    [NSApp stopModalWithCode:NSModalResponseStop];
                                                }
                                              }];
    [NSRunLoop.mainRunLoop addTimer:timer forMode:NSModalPanelRunLoopMode];
    macos::KeyboardFocus keyboard;
    return macos::Alerts(keyboard).runModal(question);
}

TEST(MacAlertsTest, AnAlertLiesAboveTheZoneOutlineAndDoesNotKeepTheProgramFromEnding) {
    const AlertResponse response = askAndLook([](NSWindow *window) {
        EXPECT_FALSE(window.preventsApplicationTerminationWhenModal);
        EXPECT_GT(window.level, window_level::status);
    });
    EXPECT_EQ(response.button, 1U);
}

TEST(MacAlertsDeathTest, TheProgramEndsUnderAnAlert) {
    // A process that has talked to the window server cannot be forked: the test program is started
    // once more.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(askAndLook([](NSWindow *) { [NSApp terminate:nil]; }), testing::ExitedWithCode(0),
                "");
}

} // namespace

} // namespace corvane::contract
