#import "platform/macos/settings/SettingsWindows.h"

#import "platform/macos/app/KeyboardFocus.h"
#include "platform/macos/logic/WindowFitting.h"
#import "platform/macos/settings/Area.h"
#import "platform/macos/settings/MacToolbarDelegate.h"
#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/KeptObjects.h"
#import "platform/macos/support/Text.h"
#include "platform/views/ViewNode.h"

#include <utility>

namespace corvane::macos {

namespace {

NSWindow *makeWindow(const SettingsWindow &description) {
    // The height is a placeholder: the content decides it.
    NSWindow *window =
        [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, description.width, 1)
                                    styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable
                                      backing:NSBackingStoreBuffered
                                        defer:NO];
    window.title = systemText(description.title);
    window.releasedWhenClosed = NO;
    window.autorecalculatesKeyViewLoop = YES;
    return window;
}

NSToolbar *makeToolbar(const Toolbar &description, MacToolbarDelegate *delegate) {
    NSToolbar *toolbar = [[NSToolbar alloc] initWithIdentifier:systemText(description.identifier)];
    toolbar.delegate = delegate;
    toolbar.displayMode = NSToolbarDisplayModeIconAndLabel;
    toolbar.selectedItemIdentifier = systemText(description.selectedItem);
    return toolbar;
}

/// A higher content than the screen scrolls. The bar lies over the content, whose width is fixed.
NSScrollView *makeScrollView() {
    NSScrollView *view = [[NSScrollView alloc] initWithFrame:NSZeroRect];
    view.hasVerticalScroller = YES;
    view.scrollerStyle = NSScrollerStyleOverlay;
    view.autohidesScrollers = YES;
    view.horizontalScrollElasticity = NSScrollElasticityNone;
    view.drawsBackground = NO;
    return view;
}

views::LayoutDirection layoutDirection() {
    return NSApp.userInterfaceLayoutDirection == NSUserInterfaceLayoutDirectionRightToLeft
               ? views::LayoutDirection::rightToLeft
               : views::LayoutDirection::leftToRight;
}

NSRect visibleFrame(NSWindow *window) {
    NSScreen *screen = window.screen != nil ? window.screen : NSScreen.mainScreen;
    return screen == nil ? window.frame : screen.visibleFrame;
}

class TabbedWindow : public platform::NativeSettingsWindow {
  public:
    TabbedWindow(KeyboardFocus &keyboard, const SettingsWindow &description,
                 std::function<void(const std::string &)> toolbarItemSelected)
        : keyboard_(keyboard),
          toolbarDelegate_([[MacToolbarDelegate alloc]
              initWithToolbar:description.toolbar
                     selected:std::move(toolbarItemSelected)]),
          window_(makeWindow(description)),
          width_(description.width) {
        window_.contentView = scrollView_;
        window_.toolbar = makeToolbar(description.toolbar, toolbarDelegate_);
        window_.toolbarStyle = NSWindowToolbarStylePreference;
        closing_ =
            [NSNotificationCenter.defaultCenter addObserverForName:NSWindowWillCloseNotification
                                                            object:window_
                                                             queue:nil
                                                        usingBlock:^(NSNotification *) {
                                                          @autoreleasepool {
                                                              keyboardUse_.reset();
                                                          }
                                                        }];
    }
    TabbedWindow(const TabbedWindow &) = delete;
    TabbedWindow &operator=(const TabbedWindow &) = delete;
    ~TabbedWindow() override {
        [NSNotificationCenter.defaultCenter removeObserver:closing_];
        [window_ orderOut:nil];
        keepThroughEvents(toolbarDelegate_);
        keepThroughEvents(window_);
    }

    bool isVisible() const override { return window_.visible; }
    void makeKeyAndOrderFront() override {
        keyboardUse_ = keyboard_.take();
        [window_ makeKeyAndOrderFront:nil];
        // The system may refuse to bring the program to the front; the window is seen all the same.
        [window_ orderFrontRegardless];
    }

    void orderOut() override {
        [window_ orderOut:nil];
        keyboardUse_.reset();
    }

    void center() override { [window_ center]; }
    void setTitle(const std::string &title) override { window_.title = systemText(title); }

    void setSelectedToolbarItem(const std::string &identifier) override {
        window_.toolbar.selectedItemIdentifier = systemText(identifier);
    }

    void setContent(const View &content) override {
        auto next = std::make_unique<views::ViewNode>(content, makeArea_);
        scrollView_.documentView = static_cast<Area &>(next->native()).box();
        content_ = std::move(next);
        fit();
    }

    void updateContent(const View &content) override {
        if (content_ == nullptr || !content_->canShow(content)) {
            setContent(content);
            return;
        }
        content_->update(content);
        fit();
    }

  private:
    /// Lays the content out and gives the window its height.
    void fit() {
        const double height = content_->layOut(width_, layoutDirection());
        const NSRect whole = [window_ frameRectForContentRect:NSMakeRect(0, 0, width_, height)];
        const Rectangle frame = fittedFrame(portableRectangle(window_.frame), NSHeight(whole),
                                            portableRectangle(visibleFrame(window_)));
        [window_ setFrame:systemRectangle(frame) display:YES];
    }

    KeyboardFocus &keyboard_;
    /// While it is on the screen.
    std::shared_ptr<void> keyboardUse_;
    id<NSObject> closing_;
    MacToolbarDelegate *toolbarDelegate_;
    NSWindow *window_;
    NSScrollView *scrollView_ = makeScrollView();
    const double width_;
    const views::MakeNativeView makeArea_ = makeArea;
    std::unique_ptr<views::ViewNode> content_;
};

} // namespace

std::unique_ptr<platform::NativeSettingsWindow>
SettingsWindows::create(const SettingsWindow &window,
                        std::function<void(const std::string &identifier)> toolbarItemSelected) {
    return std::make_unique<TabbedWindow>(keyboard_, window, std::move(toolbarItemSelected));
}

} // namespace corvane::macos
