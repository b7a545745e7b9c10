#import "platform/macos/statusitem/StatusBar.h"

#import "platform/macos/app/MacAppDelegate.h"
#import "platform/macos/statusitem/MacMenuObserver.h"
#import "platform/macos/statusitem/MacStatusDotView.h"
#import "platform/macos/statusitem/Menus.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace corvane::macos {

namespace {

class StatusItem : public platform::StatusItem {
  public:
    StatusItem()
        : item_([NSStatusBar.systemStatusBar statusItemWithLength:NSVariableStatusItemLength]),
          observer_([[MacMenuObserver alloc] initWithClosed:[this] { showNewestMenu(); }]) {}
    StatusItem(const StatusItem &) = delete;
    StatusItem &operator=(const StatusItem &) = delete;
    ~StatusItem() override { [NSStatusBar.systemStatusBar removeStatusItem:item_]; }

    std::optional<Size> buttonSize() const override {
        NSStatusBarButton *button = item_.button;
        if (button == nil) {
            return std::nullopt;
        }
        return Size{button.bounds.size.width, button.bounds.size.height};
    }

    void setIcon(const StatusIcon &icon) override {
        if (icon == icon_) {
            return;
        }
        icon_ = icon;
        NSStatusBarButton *button = item_.button;
        if (NSImage *image = symbolImage(icon.image)) {
            [image setTemplate:YES];
            button.image = image;
        }
        button.title = systemText(icon.title);
        [dot_ removeFromSuperview];
        dot_ = nil;
        if (icon.dot) {
            dot_ = [[MacStatusDotView alloc] initWithDot:*icon.dot];
            [button addSubview:dot_];
        }
    }

    void setMenu(const Menu &menu) override {
        newest_ = menu;
        NSMenu *current = item_.menu;
        if (current != nil && haveSameShape(shown_.items, newest_.items)) {
            updateMenu(current, shown_.items, newest_.items);
            shown_ = newest_;
        } else if (!observer_.isOpen) {
            showNewestMenu();
        }
    }

    bool isShown() const override { return item_.visible; }

    void setToolTip(const std::string &text) override {
        item_.button.toolTip = text.empty() ? nil : systemText(text);
    }

    void openMenu() override {
        // In a turn of its own: an open menu comes back only when it closes.
        [item_.button performSelector:@selector(performClick:) withObject:nil afterDelay:0];
    }

  private:
    /// Setting another menu closes an open one; one that is open gets its turn when it closes.
    void showNewestMenu() {
        if (item_.menu != nil && shown_ == newest_) {
            return;
        }
        NSMenu *menu = makeMenu(newest_.items);
        menu.delegate = observer_;
        item_.menu = menu;
        shown_ = newest_;
    }

    NSStatusItem *item_;
    MacMenuObserver *observer_;
    MacStatusDotView *dot_ = nil;
    std::optional<StatusIcon> icon_;
    Menu shown_;
    Menu newest_;
};

} // namespace

std::unique_ptr<platform::StatusItem>
StatusBar::createItem(std::function<void(const MenuCommand &)> perform) {
    MacAppDelegate.current.perform = std::move(perform);
    return std::make_unique<StatusItem>();
}

} // namespace corvane::macos
