#import "platform/macos/statusitem/Menus.h"

#import "platform/macos/app/MacAppDelegate.h"
#import "platform/macos/hotkey/HotKeys.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

#include <algorithm>
#include <string>

namespace corvane::macos {

namespace {

/// The application delegate has a method of each name but the last, which is the application's own.
SEL selectorFor(ActionID action) {
    switch (action) {
    case ActionID::none:
        break;
    case ActionID::openAccessibilitySettings:
        return @selector(openAccessibilitySettings:);
    case ActionID::startClicking:
        return @selector(startClicking:);
    case ActionID::stopClicking:
        return @selector(stopClicking:);
    case ActionID::setModeCursor:
        return @selector(setModeCursor:);
    case ActionID::setModeZone:
        return @selector(setModeZone:);
    case ActionID::selectZone:
        return @selector(selectZone:);
    case ActionID::loadProfile:
        return @selector(loadProfile:);
    case ActionID::saveAsProfile:
        return @selector(saveAsProfile:);
    case ActionID::showConfig:
        return @selector(showConfig:);
    case ActionID::terminate:
        return @selector(terminate:);
    }
    return nullptr;
}

/// The hot key as a hint behind a tab: the item itself has no key, because the hot key works
/// everywhere.
std::string titleOf(const MenuItem &item) {
    return item.hotKey ? item.title + "\t" + hotKeyText(*item.hotKey) : item.title;
}

void configure(NSMenuItem *view, const MenuItem &item) {
    view.title = systemText(titleOf(item));
    if (!item.submenu) {
        // The line of a submenu has an action of the system's own, without which it is disabled.
        view.action = selectorFor(item.action);
        const bool isDelegates =
            item.action != ActionID::none && item.action != ActionID::terminate;
        view.target = isDelegates ? MacAppDelegate.current : nil;
    }
    view.keyEquivalent = systemText(item.commandKey);
    view.keyEquivalentModifierMask = NSEventModifierFlagCommand;
    view.image = item.image ? symbolImage(*item.image) : nil;
    view.enabled = item.isEnabled;
    view.state = item.isOn ? NSControlStateValueOn : NSControlStateValueOff;
    view.representedObject =
        item.representedObject.empty() ? nil : systemText(item.representedObject);
}

NSMenuItem *makeItem(const MenuItem &item) {
    if (item.isSeparator) {
        return [NSMenuItem separatorItem];
    }
    NSMenuItem *view = [[NSMenuItem alloc] init];
    configure(view, item);
    if (item.submenu) {
        view.submenu = makeMenu(*item.submenu);
    }
    return view;
}

void updateItem(NSMenuItem *view, const MenuItem &shown, const MenuItem &newest) {
    if (shown == newest) {
        return;
    }
    configure(view, newest);
    if (NSMenu *submenu = view.submenu) {
        updateMenu(submenu, *shown.submenu, *newest.submenu);
    }
}

} // namespace

NSMenu *makeMenu(const std::vector<MenuItem> &items) {
    NSMenu *menu = [[NSMenu alloc] init];
    for (const MenuItem &item : items) {
        [menu addItem:makeItem(item)];
    }
    return menu;
}

void updateMenu(NSMenu *menu, const std::vector<MenuItem> &shown,
                const std::vector<MenuItem> &newest) {
    for (std::size_t index = 0; index < newest.size(); ++index) {
        updateItem([menu itemAtIndex:static_cast<NSInteger>(index)], shown[index], newest[index]);
    }
}

} // namespace corvane::macos
