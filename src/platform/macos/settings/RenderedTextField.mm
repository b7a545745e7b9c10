#import "platform/macos/settings/MacTextObserver.h"
#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/support/Text.h"

namespace corvane::macos {

namespace {

class RenderedTextField : public RenderedContent {
  public:
    RenderedTextField() {
        field_.bezelStyle = NSTextFieldRoundedBezel;
        field_.delegate = observer_;
    }

    NSView *view() const override { return field_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        const auto &field = std::get<TextField>(next.content);
        changed_ = field.changed;
        field_.placeholderString = systemText(field.placeholder);
        NSString *text = systemText(field.text);
        if (![field_.stringValue isEqualToString:text]) {
            field_.stringValue = text;
        }
        prepareControl(field_, next);
        // It takes the width that the controls beside it leave.
        [field_ setContentHuggingPriority:1 forOrientation:NSLayoutConstraintOrientationHorizontal];
    }

  private:
    void textChanged() const {
        const auto changed = changed_;
        changed(utf8(field_.stringValue));
    }

    NSTextField *field_ = [NSTextField textFieldWithString:@""];
    MacTextObserver *observer_ = [[MacTextObserver alloc] initWithChanged:[this] { textChanged(); }
        ended:[] {}];
    Handler<std::string> changed_;
};

} // namespace

std::unique_ptr<RenderedContent> makeTextField() { return std::make_unique<RenderedTextField>(); }

} // namespace corvane::macos
