#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

namespace corvane::macos {

namespace {

class RenderedButton : public RenderedContent {
  public:
    RenderedButton() {
        button_.bezelStyle = NSBezelStyleRounded;
        [target_ attachTo:button_];
    }

    NSView *view() const override { return button_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        const auto &button = std::get<Button>(next.content);
        action_ = button.action;
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
        prepareControl(button_, next);
    }

  private:
    void pressed() const {
        const auto action = action_;
        action();
    }

    NSButton *button_ = [NSButton buttonWithTitle:@"" target:nil action:nullptr];
    MacActionTarget *target_ = [[MacActionTarget alloc] initWithAction:[this] { pressed(); }];
    Handler<> action_;
};

} // namespace

std::unique_ptr<RenderedContent> makeButton() { return std::make_unique<RenderedButton>(); }

} // namespace corvane::macos
