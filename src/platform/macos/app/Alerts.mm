#import "platform/macos/app/Alerts.h"

#import "platform/macos/app/KeyboardFocus.h"
#include "platform/macos/logic/AlertAnswer.h"
#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

namespace corvane::macos {

namespace {

NSAlertStyle systemStyle(AlertStyle style) {
    switch (style) {
    case AlertStyle::warning:
        return NSAlertStyleWarning;
    case AlertStyle::informational:
        return NSAlertStyleInformational;
    }
}

NSString *const escapeKey = @"\x1b";

NSAlert *makeAlert(const Alert &alert) {
    NSAlert *panel = [[NSAlert alloc] init];
    // Without this an open alert refuses every end of the program: Quit, a signal, logging out.
    panel.window.preventsApplicationTerminationWhenModal = NO;
    // Above the zone's outline.
    panel.window.level = NSPopUpMenuWindowLevel;
    panel.alertStyle = systemStyle(alert.style);
    panel.messageText = systemText(alert.messageText);
    panel.informativeText = systemText(alert.informativeText);
    for (const std::string &button : alert.buttons) {
        [panel addButtonWithTitle:systemText(button)];
    }
    if (panel.buttons.count > 1) {
        // The system does so only where it knows the title, such as "Cancel".
        panel.buttons.lastObject.keyEquivalent = escapeKey;
    }
    return panel;
}

NSTextField *addField(const AlertField &field, NSAlert *panel) {
    NSTextField *view =
        [[NSTextField alloc] initWithFrame:NSMakeRect(0, 0, field.size.width, field.size.height)];
    view.stringValue = systemText(field.text);
    view.placeholderString = systemText(field.placeholder);
    panel.accessoryView = view;
    [panel layout];
    panel.window.initialFirstResponder = view;
    return view;
}

} // namespace

AlertResponse Alerts::runModal(const Alert &alert) {
    NSAlert *panel = makeAlert(alert);
    NSTextField *field = alert.field ? addField(*alert.field, panel) : nil;
    const auto keyboard = keyboard_.take();
    const NSModalResponse response = [panel runModal];
    return {.button = answeredButton(response - NSAlertFirstButtonReturn, alert.buttons.size()),
            .fieldText = field == nil ? std::string() : utf8(field.stringValue)};
}

} // namespace corvane::macos
