#import "platform/macos/support/EditingKeys.h"

namespace corvane::macos {

namespace {

void addKey(NSMenu *menu, SEL action, NSString *key) {
    [menu addItemWithTitle:@"" action:action keyEquivalent:key];
}

} // namespace

NSMenu *makeEditingKeys() {
    NSMenu *keys = [[NSMenu alloc] init];
    // An upper-case letter stands for the Shift key.
    addKey(keys, NSSelectorFromString(@"undo:"), @"z");
    addKey(keys, NSSelectorFromString(@"redo:"), @"Z");
    addKey(keys, @selector(cut:), @"x");
    addKey(keys, @selector(copy:), @"c");
    addKey(keys, @selector(paste:), @"v");
    addKey(keys, @selector(selectAll:), @"a");
    addKey(keys, @selector(performClose:), @"w");
    addKey(keys, @selector(terminate:), @"q");
    NSMenuItem *item = [[NSMenuItem alloc] init];
    item.submenu = keys;
    NSMenu *mainMenu = [[NSMenu alloc] init];
    [mainMenu addItem:item];
    return mainMenu;
}

} // namespace corvane::macos
