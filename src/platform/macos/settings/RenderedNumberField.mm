#import "platform/macos/settings/MacTextObserver.h"
#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/support/Text.h"
#include "presentation/WholeNumber.h"

namespace corvane::macos {

namespace {

class RenderedNumberField : public RenderedContent {
  public:
    RenderedNumberField() {
        field_.bezelStyle = NSTextFieldRoundedBezel;
        field_.delegate = observer_;
        showValue();
    }

    NSView *view() const override { return field_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        const auto &number = std::get<NumberField>(next.content);
        const bool isNew = number.value != value_;
        value_ = number.value;
        changed_ = number.changed;
        // While the user types, only a value from elsewhere replaces the text.
        if (field_.currentEditor == nil || (isNew && typed() != value_)) {
            showValue();
        }
        prepareControl(field_, next);
    }

  private:
    std::optional<std::int64_t> typed() const { return wholeNumber(utf8(field_.stringValue)); }

    void showValue() {
        NSString *text = systemText(wholeNumberText(value_));
        if (![field_.stringValue isEqualToString:text]) {
            field_.stringValue = text;
        }
    }

    void textChanged() const {
        const auto changed = changed_;
        if (const auto value = typed()) {
            changed(*value);
        }
    }

    NSTextField *field_ = [NSTextField textFieldWithString:@""];
    MacTextObserver *observer_ = [[MacTextObserver alloc] initWithChanged:[this] { textChanged(); }
        ended:[this] { showValue(); }];
    std::int64_t value_ = 0;
    Handler<std::int64_t> changed_;
};

} // namespace

std::unique_ptr<RenderedContent> makeNumberField() {
    return std::make_unique<RenderedNumberField>();
}

} // namespace corvane::macos
