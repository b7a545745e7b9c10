#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/RenderedContent.h"

#include <algorithm>

namespace corvane::macos {

namespace {

class RenderedStepper : public RenderedContent {
  public:
    RenderedStepper() {
        control_.valueWraps = NO;
        control_.autorepeat = YES;
        [target_ attachTo:control_];
    }

    NSView *view() const override { return control_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        stepper_ = std::get<Stepper>(next.content);
        showValue();
        prepareControl(control_, next);
    }

  private:
    /// The range of the control takes in a value that lies outside, so that it can be shown.
    void showValue() {
        control_.minValue = static_cast<double>(std::min(stepper_.lowest, stepper_.value));
        control_.maxValue = static_cast<double>(std::max(stepper_.highest, stepper_.value));
        control_.increment = static_cast<double>(stepper_.step);
        control_.doubleValue = static_cast<double>(stepper_.value);
    }

    void stepped() {
        const Stepper stepper = stepper_;
        const double change = control_.doubleValue - static_cast<double>(stepper.value);
        showValue();
        const auto value = change > 0 ? stepper.incremented() : stepper.decremented();
        if (change != 0 && value) {
            stepper.changed(*value);
        }
    }

    NSStepper *control_ = [[NSStepper alloc] initWithFrame:NSZeroRect];
    MacActionTarget *target_ = [[MacActionTarget alloc] initWithAction:[this] { stepped(); }];
    Stepper stepper_;
};

} // namespace

std::unique_ptr<RenderedContent> makeStepper() { return std::make_unique<RenderedStepper>(); }

} // namespace corvane::macos
