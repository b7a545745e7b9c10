#import "platform/macos/statusitem/StatusBar.h"

#import "platform/macos/app/MacAppDelegate.h"
#include "platform/macos/logic/MenuPresenter.h"
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
          observer_([[MacMenuObserver alloc] initWithOpened:[this] { presenter_.menuOpened(); }
              closed:[this] { presenter_.menuClosed(); }]) {}
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

    void setMenu(const Menu &menu) override { presenter_.show(menu); }

    /// The menu bar is part of the system.
    bool isShown() const override { return true; }

    void setToolTip(const std::string &text) override {
        item_.button.toolTip = text.empty() ? nil : systemText(text);
    }

    void openMenu() override {
        // In a turn of its own: an open menu comes back only when it closes.
        [item_.button performSelector:@selector(performClick:) withObject:nil afterDelay:0];
    }

  private:
    void replaceMenu(const Menu &menu) {
        NSMenu *next = makeMenu(menu.items);
        next.delegate = observer_;
        item_.menu = next;
    }

    void changeMenu(const Menu &shown, const Menu &next) {
        if (NSMenu *menu = item_.menu) {
            updateMenu(menu, shown.items, next.items);
        }
    }

    NSStatusItem *item_;
    MacMenuObserver *observer_;
    MacStatusDotView *dot_ = nil;
    std::optional<StatusIcon> icon_;
    MenuPresenter presenter_{
        {.replace = [this](const Menu &menu) { replaceMenu(menu); },
         .update = [this](const Menu &shown, const Menu &next) { changeMenu(shown, next); }}};
};

} // namespace

std::unique_ptr<platform::StatusItem>
StatusBar::createItem(std::function<void(const MenuCommand &)> perform) {
    MacAppDelegate.current.perform = std::move(perform);
    return std::make_unique<StatusItem>();
}

} // namespace corvane::macos
