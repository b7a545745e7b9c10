#import "platform/macos/settings/SettingsWindows.h"

#import "platform/macos/settings/MacToolbarDelegate.h"
#import "platform/macos/settings/RenderedView.h"
#import "platform/macos/support/KeptObjects.h"
#import "platform/macos/support/Text.h"

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

/// The window's own view around the content, whose size is left to the content.
NSView *makeContentView(NSView *content) {
    NSView *view = [[NSView alloc] initWithFrame:NSZeroRect];
    [view addSubview:content];
    [NSLayoutConstraint activateConstraints:@[
        [content.leadingAnchor constraintEqualToAnchor:view.leadingAnchor],
        [content.trailingAnchor constraintEqualToAnchor:view.trailingAnchor],
        [content.topAnchor constraintEqualToAnchor:view.topAnchor],
        [content.bottomAnchor constraintEqualToAnchor:view.bottomAnchor],
    ]];
    return view;
}

class TabbedWindow : public platform::NativeSettingsWindow {
  public:
    TabbedWindow(const SettingsWindow &description,
                 std::function<void(const std::string &)> toolbarItemSelected)
        : toolbarDelegate_([[MacToolbarDelegate alloc]
              initWithToolbar:description.toolbar
                     selected:std::move(toolbarItemSelected)]),
          window_(makeWindow(description)) {
        window_.toolbar = makeToolbar(description.toolbar, toolbarDelegate_);
        window_.toolbarStyle = NSWindowToolbarStylePreference;
    }
    TabbedWindow(const TabbedWindow &) = delete;
    TabbedWindow &operator=(const TabbedWindow &) = delete;
    ~TabbedWindow() override {
        [window_ orderOut:nil];
        keepThroughEvents(toolbarDelegate_);
        keepThroughEvents(window_);
    }

    bool isVisible() const override { return window_.visible; }
    void makeKeyAndOrderFront() override { [window_ makeKeyAndOrderFront:nil]; }
    void orderOut() override { [window_ orderOut:nil]; }
    void center() override { [window_ center]; }
    void setTitle(const std::string &title) override { window_.title = systemText(title); }

    void setSelectedToolbarItem(const std::string &identifier) override {
        window_.toolbar.selectedItemIdentifier = systemText(identifier);
    }

    void setContent(const View &content) override {
        const CGFloat top = NSMaxY(window_.frame);
        auto next = std::make_unique<RenderedView>(content, surroundings());
        window_.contentView = makeContentView(next->box());
        content_ = std::move(next);
        fitHeight(top);
    }

    void updateContent(const View &content) override {
        if (content_ == nullptr || !content_->canShow(content)) {
            setContent(content);
            return;
        }
        const CGFloat top = NSMaxY(window_.frame);
        content_->update(content, surroundings());
        fitHeight(top);
    }

  private:
    static Surroundings surroundings() { return {.ordinaryColour = NSColor.labelColor}; }

    /// Gives the window the height of its content, with its top edge where it was.
    void fitHeight(CGFloat top) {
        [window_ layoutIfNeeded];
        NSRect frame = [window_ frameRectForContentRect:{NSZeroPoint, content_->box().fittingSize}];
        frame.origin = NSMakePoint(NSMinX(window_.frame), top - frame.size.height);
        [window_ setFrame:frame display:YES];
    }

    MacToolbarDelegate *toolbarDelegate_;
    NSWindow *window_;
    std::unique_ptr<RenderedView> content_;
};

} // namespace

std::unique_ptr<platform::NativeSettingsWindow>
SettingsWindows::create(const SettingsWindow &window,
                        std::function<void(const std::string &identifier)> toolbarItemSelected) {
    return std::make_unique<TabbedWindow>(window, std::move(toolbarItemSelected));
}

} // namespace corvane::macos
