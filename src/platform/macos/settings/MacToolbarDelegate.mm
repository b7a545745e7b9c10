#import "platform/macos/settings/MacToolbarDelegate.h"

#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

#include <algorithm>
#include <utility>

namespace macos = corvane::macos;

@implementation MacToolbarDelegate {
    corvane::Toolbar _toolbar;
    std::function<void(const std::string &)> _selected;
    NSArray<NSToolbarItemIdentifier> *_identifiers;
}

- (instancetype)initWithToolbar:(const corvane::Toolbar &)toolbar
                       selected:(std::function<void(const std::string &)>)selected {
    self = [super init];
    if (self != nil) {
        _toolbar = toolbar;
        _selected = std::move(selected);
        NSMutableArray<NSToolbarItemIdentifier> *identifiers = [NSMutableArray array];
        for (const corvane::ToolbarItem &item : toolbar.items) {
            [identifiers addObject:macos::systemText(item.identifier)];
        }
        _identifiers = identifiers;
    }
    return self;
}

- (NSArray<NSToolbarItemIdentifier> *)toolbarDefaultItemIdentifiers:(NSToolbar *)toolbar {
    return _identifiers;
}

- (NSArray<NSToolbarItemIdentifier> *)toolbarAllowedItemIdentifiers:(NSToolbar *)toolbar {
    return _identifiers;
}

- (NSArray<NSToolbarItemIdentifier> *)toolbarSelectableItemIdentifiers:(NSToolbar *)toolbar {
    return _identifiers;
}

- (NSToolbarItem *)toolbar:(NSToolbar *)toolbar
        itemForItemIdentifier:(NSToolbarItemIdentifier)identifier
    willBeInsertedIntoToolbar:(BOOL)isInserted {
    NSToolbarItem *view = [[NSToolbarItem alloc] initWithItemIdentifier:identifier];
    view.target = self;
    view.action = @selector(toolbarTabSelected:);
    const std::string name = macos::utf8(identifier);
    const auto item = std::ranges::find(_toolbar.items, name, &corvane::ToolbarItem::identifier);
    if (item != _toolbar.items.end()) {
        view.label = macos::systemText(item->label);
        view.image = macos::symbolImage(item->image);
    }
    return view;
}

- (void)toolbarTabSelected:(NSToolbarItem *)sender {
    // A copy: the receiver may destroy the window and this object.
    const auto selected = _selected;
    selected(macos::utf8(sender.itemIdentifier));
}

@end
