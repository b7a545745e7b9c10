#import "platform/macos/settings/Area.h"
#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/MacTextObserver.h"
#import "platform/macos/support/Text.h"
#include "platform/views/NumberEditing.h"

#include <algorithm>

namespace corvane::macos {

namespace {

/// Shows the text without ending the typing: setting the field's own value would take the keyboard
/// from it.
void setText(NSTextField *field, const std::string &text) {
    if (NSText *editor = field.currentEditor) {
        editor.string = systemText(text);
    } else {
        field.stringValue = systemText(text);
    }
}

class NumberFieldArea : public Area {
  public:
    NumberFieldArea(const View &view, NSTextField *field) : Area(view, field), field_(field) {
        field_.bezelStyle = NSTextFieldRoundedBezel;
        field_.delegate = observer_;
    }

  protected:
    void render() override {
        const std::int64_t former = std::exchange(value_, content<NumberField>().value);
        const bool isEditing = field_.currentEditor != nil;
        if (const auto text = views::textToShow(former, value_, shownText(), isEditing)) {
            setText(field_, *text);
        }
        describeControl(field_);
    }

  private:
    std::string shownText() const { return utf8(field_.stringValue); }

    void typed() {
        if (const auto value = views::typedValue(shownText(), value_)) {
            content<NumberField>().changed(*value);
        }
    }

    /// What is no number goes.
    void typingEnded() {
        if (const auto text = views::textToShow(value_, value_, shownText(), false)) {
            field_.stringValue = systemText(*text);
        }
    }

    NSTextField *field_;
    MacTextObserver *observer_ = [[MacTextObserver alloc] initWithChanged:[this] { typed(); }
        ended:[this] { typingEnded(); }];
    std::int64_t value_ = 0;
};

class StepperArea : public Area {
  public:
    StepperArea(const View &view, NSStepper *control) : Area(view, control), control_(control) {
        control_.valueWraps = NO;
        control_.autorepeat = YES;
        [target_ attachTo:control_];
    }

  protected:
    void render() override {
        showValue();
        describeControl(control_);
    }

  private:
    /// The range of the control takes in a value that lies outside, so that it can be shown.
    void showValue() {
        const auto &stepper = content<Stepper>();
        control_.minValue = static_cast<double>(std::min(stepper.lowest, stepper.value));
        control_.maxValue = static_cast<double>(std::max(stepper.highest, stepper.value));
        control_.increment = static_cast<double>(stepper.step);
        control_.doubleValue = static_cast<double>(stepper.value);
    }

    void stepped() {
        const auto &stepper = content<Stepper>();
        const auto value =
            views::steppedValue(stepper, control_.doubleValue - static_cast<double>(stepper.value));
        showValue();
        if (value) {
            stepper.changed(*value);
        }
    }

    NSStepper *control_;
    MacActionTarget *target_ = [[MacActionTarget alloc] initWithAction:[this] { stepped(); }];
};

class TextFieldArea : public Area {
  public:
    TextFieldArea(const View &view, NSTextField *field) : Area(view, field), field_(field) {
        field_.bezelStyle = NSTextFieldRoundedBezel;
        field_.delegate = observer_;
    }

  protected:
    void render() override {
        const auto &next = content<TextField>();
        field_.placeholderString = systemText(next.placeholder);
        if (utf8(field_.stringValue) != next.text) {
            setText(field_, next.text);
        }
        describeControl(field_);
    }

  private:
    NSTextField *field_;
    MacTextObserver *observer_ = [[MacTextObserver alloc]
        initWithChanged:[this] { content<TextField>().changed(utf8(field_.stringValue)); }
        ended:[] {}];
};

} // namespace

std::unique_ptr<Area> makeNumberFieldArea(const View &view) {
    return std::make_unique<NumberFieldArea>(view, [NSTextField textFieldWithString:@""]);
}

std::unique_ptr<Area> makeStepperArea(const View &view) {
    return std::make_unique<StepperArea>(view, [[NSStepper alloc] initWithFrame:NSZeroRect]);
}

std::unique_ptr<Area> makeTextFieldArea(const View &view) {
    return std::make_unique<TextFieldArea>(view, [NSTextField textFieldWithString:@""]);
}

} // namespace corvane::macos
