#import "platform/macos/settings/Area.h"
#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/MacLinkView.h"
#import "platform/macos/settings/Styles.h"
#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

#include <vector>

namespace corvane::macos {

namespace {

class ButtonArea : public Area {
  public:
    ButtonArea(const View &view, NSButton *button) : Area(view, button), button_(button) {
        button_.bezelStyle = NSBezelStyleRounded;
        [target_ attachTo:button_];
    }

  protected:
    void render() override {
        const auto &button = content<Button>();
        button_.title = systemText(button.title);
        button_.image = button.symbol ? symbolImage(*button.symbol) : nil;
        button_.imagePosition = button.symbol ? NSImageLeading : NSNoImage;
        button_.controlSize =
            button.controlSize == ControlSize::small ? NSControlSizeSmall : NSControlSizeRegular;
        button_.font =
            [NSFont systemFontOfSize:[NSFont systemFontSizeForControlSize:button_.controlSize]];
        button_.bezelColor =
            button.style == ButtonStyle::borderedProminent ? NSColor.controlAccentColor : nil;
        button_.enabled = button.isEnabled;
        button_.keyEquivalent = button.isDefaultAction ? @"\r" : @"";
        describeControl(button_);
    }

  private:
    NSButton *button_;
    MacActionTarget *target_ =
        [[MacActionTarget alloc] initWithAction:[this] { content<Button>().action(); }];
};

class MenuButtonArea : public Area {
  public:
    MenuButtonArea(const View &view, NSPopUpButton *button) : Area(view, button), button_(button) {
        button_.bordered = NO;
        button_.imagePosition = NSImageOnly;
        static_cast<NSPopUpButtonCell *>(button_.cell).arrowPosition = NSPopUpNoArrow;
    }

  protected:
    void render() override {
        const auto &menuButton = content<MenuButton>();
        makeMenu(menuButton.items);
        NSImage *symbol = symbolImage({.name = menuButton.symbolName});
        // The first item of a pull-down menu is what its button shows.
        [button_ itemAtIndex:0].image =
            [symbol imageWithSymbolConfiguration:symbolConfiguration(view().font)];
        describeControl(button_);
    }

  private:
    void makeMenu(const std::vector<MenuButtonItem> &items) {
        NSMenu *menu = [[NSMenu alloc] init];
        [menu addItemWithTitle:@"" action:nullptr keyEquivalent:@""];
        [targets_ removeAllObjects];
        for (std::size_t index = 0; index < items.size(); ++index) {
            [menu addItem:items[index].title.empty() ? [NSMenuItem separatorItem]
                                                     : makeItem(items[index], index)];
        }
        button_.menu = menu;
    }

    NSMenuItem *makeItem(const MenuButtonItem &item, std::size_t index) {
        MacActionTarget *target = [[MacActionTarget alloc]
            initWithAction:[this, index] { content<MenuButton>().items[index].action(); }];
        [targets_ addObject:target];
        NSMenuItem *line = [[NSMenuItem alloc] initWithTitle:systemText(item.title)
                                                      action:@selector(perform:)
                                               keyEquivalent:@""];
        line.target = target;
        if (item.isDestructive) {
            line.attributedTitle = [[NSAttributedString alloc]
                initWithString:line.title
                    attributes:@{
                        NSForegroundColorAttributeName : NSColor.systemRedColor,
                        NSFontAttributeName : [NSFont menuFontOfSize:0]
                    }];
        }
        return line;
    }

    NSPopUpButton *button_;
    /// Menu items hold their targets weakly.
    NSMutableArray<MacActionTarget *> *targets_ = [NSMutableArray array];
};

/// The label's areas lie in the link, which is as large as its area.
class LinkArea : public Area {
  public:
    LinkArea(const View &view, MacLinkView *link) : Area(view, link), link_(link) {
        link_.action = [this] { content<Link>().action(); };
    }
    ~LinkArea() override { link_.action = nullptr; }
    LinkArea(const LinkArea &) = delete;
    LinkArea &operator=(const LinkArea &) = delete;

    void place(const Rectangle &area, const Rectangle & /*content*/) override {
        Area::place(area, {0, 0, area.width, area.height});
    }

  protected:
    void render() override {
        link_.toolTip = systemText(content<Link>().address);
        describeControl(link_);
    }

  private:
    MacLinkView *link_;
};

} // namespace

std::unique_ptr<Area> makeButtonArea(const View &view) {
    return std::make_unique<ButtonArea>(view, [NSButton buttonWithTitle:@""
                                                                 target:nil
                                                                 action:nullptr]);
}

std::unique_ptr<Area> makeMenuButtonArea(const View &view) {
    return std::make_unique<MenuButtonArea>(view, [[NSPopUpButton alloc] initWithFrame:NSZeroRect
                                                                             pullsDown:YES]);
}

std::unique_ptr<Area> makeLinkArea(const View &view) {
    return std::make_unique<LinkArea>(view, [[MacLinkView alloc] initWithFrame:NSZeroRect]);
}

} // namespace corvane::macos
