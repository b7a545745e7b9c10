#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/settings/Styles.h"
#import "platform/macos/support/Text.h"

namespace corvane::macos {

namespace {

NSTextAlignment systemAlignment(Alignment alignment) {
    const bool isRightToLeft =
        NSApp.userInterfaceLayoutDirection == NSUserInterfaceLayoutDirectionRightToLeft;
    switch (alignment) {
    case Alignment::leading:
    case Alignment::top:
        return NSTextAlignmentNatural;
    case Alignment::center:
        return NSTextAlignmentCenter;
    case Alignment::trailing:
        return isRightToLeft ? NSTextAlignmentLeft : NSTextAlignmentRight;
    }
}

class RenderedText : public RenderedContent {
  public:
    NSView *view() const override { return label_; }

    void update(const View &next, const Surroundings &surroundings) override {
        const auto &text = std::get<Text>(next.content);
        label_.stringValue = systemText(text.text);
        label_.font = systemFont(next.font);
        label_.textColor = foregroundColour(next.foreground, surroundings.ordinaryColour);
        label_.alignment = systemAlignment(text.lineAlignment);
        label_.maximumNumberOfLines = text.isSingleLine ? 1 : 0;
        label_.lineBreakMode =
            text.isSingleLine ? NSLineBreakByTruncatingTail : NSLineBreakByWordWrapping;
        prepareControl(label_, next);
        // A text gives way before a control does.
        [label_ setContentCompressionResistancePriority:NSLayoutPriorityDefaultLow
                                         forOrientation:NSLayoutConstraintOrientationHorizontal];
    }

  private:
    NSTextField *label_ = [NSTextField labelWithString:@""];
};

} // namespace

std::unique_ptr<RenderedContent> makeText() { return std::make_unique<RenderedText>(); }

} // namespace corvane::macos
