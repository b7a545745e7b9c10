#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/settings/Styles.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

#include <vector>

namespace corvane::macos {

namespace {

class RenderedMenuButton : public RenderedContent {
  public:
    RenderedMenuButton() {
        button_.bordered = NO;
        button_.imagePosition = NSImageOnly;
        static_cast<NSPopUpButtonCell *>(button_.cell).arrowPosition = NSPopUpNoArrow;
    }

    NSView *view() const override { return button_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        const auto &menuButton = std::get<MenuButton>(next.content);
        const bool isNew = items_ != menuButton.items;
        items_ = menuButton.items;
        if (isNew) {
            makeMenu();
        }
        NSImage *symbol = symbolImage({.name = menuButton.symbolName});
        // The first item of a pull-down menu is what its button shows.
        [button_ itemAtIndex:0].image =
            [symbol imageWithSymbolConfiguration:symbolConfiguration(next.font)];
        prepareControl(button_, next);
    }

  private:
    void makeMenu() {
        NSMenu *menu = [[NSMenu alloc] init];
        [menu addItemWithTitle:@"" action:nullptr keyEquivalent:@""];
        targets_ = [NSMutableArray array];
        for (std::size_t index = 0; index < items_.size(); ++index) {
            [menu
                addItem:items_[index].title.empty() ? [NSMenuItem separatorItem] : makeItem(index)];
        }
        button_.menu = menu;
    }

    NSMenuItem *makeItem(std::size_t index) {
        MacActionTarget *target =
            [[MacActionTarget alloc] initWithAction:[this, index] { chosen(index); }];
        [targets_ addObject:target];
        NSMenuItem *item = [[NSMenuItem alloc] initWithTitle:systemText(items_[index].title)
                                                      action:@selector(perform:)
                                               keyEquivalent:@""];
        item.target = target;
        if (items_[index].isDestructive) {
            item.attributedTitle = [[NSAttributedString alloc]
                initWithString:item.title
                    attributes:@{
                        NSForegroundColorAttributeName : NSColor.systemRedColor,
                        NSFontAttributeName : [NSFont menuFontOfSize:0]
                    }];
        }
        return item;
    }

    void chosen(std::size_t index) const {
        const auto action = items_[index].action;
        action();
    }

    NSPopUpButton *button_ = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:YES];
    std::vector<MenuButtonItem> items_;
    /// Menu items hold their targets weakly.
    NSMutableArray<MacActionTarget *> *targets_ = [NSMutableArray array];
};

} // namespace

std::unique_ptr<RenderedContent> makeMenuButton() { return std::make_unique<RenderedMenuButton>(); }

} // namespace corvane::macos
