#import "platform/macos/statusitem/Menus.h"

#import "platform/macos/app/MacAppDelegate.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

namespace corvane::macos {

namespace {

void configure(NSMenuItem *view, const MenuItem &item) {
    view.title = systemText(item.title);
    if (!item.submenu) {
        // The line of a submenu has an action of the system's own, without which it is disabled.
        view.action = item.action.empty() ? nullptr : NSSelectorFromString(systemText(item.action));
        view.target = item.target == MenuTarget::appDelegate ? MacAppDelegate.current : nil;
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
