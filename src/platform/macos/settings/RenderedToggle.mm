#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/settings/Styles.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

namespace corvane::macos {

namespace {

/// Points between the box, the symbol and the title.
constexpr CGFloat labelSpacing = 5;

/// A check box whose label begins with a symbol.
class RenderedToggle : public RenderedContent {
  public:
    RenderedToggle() {
        box_.imagePosition = NSImageOnly;
        label_.accessibilityElement = NO;
        symbol_.accessibilityElement = NO;
        row_.spacing = labelSpacing;
        [target_ attachTo:box_];
        for (NSView *part in @[ symbol_, label_ ]) {
            [part addGestureRecognizer:[[NSClickGestureRecognizer alloc]
                                           initWithTarget:box_
                                                   action:@selector(performClick:)]];
        }
    }

    NSView *view() const override { return row_; }

    void update(const View &next, const Surroundings &surroundings) override {
        const auto &toggle = std::get<Toggle>(next.content);
        isOn_ = toggle.isOn;
        changed_ = toggle.changed;
        showState();
        box_.accessibilityLabel = systemText(toggle.title);
        symbol_.image = toggle.symbol ? symbolImage(*toggle.symbol) : nil;
        symbol_.symbolConfiguration = symbolConfiguration(next.font);
        symbol_.hidden = !toggle.symbol;
        label_.stringValue = systemText(toggle.title);
        label_.font = systemFont(next.font);
        label_.textColor = foregroundColour(next.foreground, surroundings.ordinaryColour);
        symbol_.contentTintColor = label_.textColor;
        prepareControl(box_, next);
        prepareControl(label_, next);
    }

  private:
    void showState() { box_.state = isOn_ ? NSControlStateValueOn : NSControlStateValueOff; }

    void clicked() {
        const bool isWanted = box_.state == NSControlStateValueOn;
        const auto changed = changed_;
        // Whether the state changes is for the receiver to say.
        showState();
        changed(isWanted);
    }

    NSButton *box_ = [NSButton checkboxWithTitle:@"" target:nil action:nullptr];
    NSImageView *symbol_ = [[NSImageView alloc] initWithFrame:NSZeroRect];
    NSTextField *label_ = [NSTextField labelWithString:@""];
    NSStackView *row_ = [NSStackView stackViewWithViews:@[ box_, symbol_, label_ ]];
    MacActionTarget *target_ = [[MacActionTarget alloc] initWithAction:[this] { clicked(); }];
    bool isOn_ = false;
    Handler<bool> changed_;
};

} // namespace

std::unique_ptr<RenderedContent> makeToggle() { return std::make_unique<RenderedToggle>(); }

} // namespace corvane::macos
