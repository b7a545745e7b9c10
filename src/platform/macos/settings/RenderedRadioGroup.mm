#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/support/Text.h"

#include <utility>
#include <vector>

namespace corvane::macos {

namespace {

/// Points between two choices.
constexpr CGFloat optionSpacing = 6;

class RenderedRadioGroup : public RenderedContent {
  public:
    RenderedRadioGroup() {
        column_.orientation = NSUserInterfaceLayoutOrientationVertical;
        column_.alignment = NSLayoutAttributeLeading;
        column_.spacing = optionSpacing;
        column_.accessibilityRole = NSAccessibilityRadioGroupRole;
    }

    NSView *view() const override { return column_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        const auto &picker = std::get<Picker>(next.content);
        selected_ = picker.selected;
        changed_ = picker.changed;
        if (options_ != picker.options) {
            options_ = picker.options;
            makeOptions();
        }
        showSelection();
        describe(column_, next);
    }

  private:
    struct Option {
        NSButton *button;
        MacActionTarget *target;
    };

    void makeOptions() {
        for (const Option &option : buttons_) {
            [option.button removeFromSuperview];
        }
        buttons_.clear();
        for (std::size_t index = 0; index < options_.size(); ++index) {
            MacActionTarget *target =
                [[MacActionTarget alloc] initWithAction:[this, index] { chosen(index); }];
            NSButton *button = [NSButton radioButtonWithTitle:systemText(options_[index])
                                                       target:nil
                                                       action:nullptr];
            [target attachTo:button];
            [column_ addArrangedSubview:button];
            buttons_.push_back({button, target});
        }
    }

    void showSelection() {
        for (std::size_t index = 0; index < buttons_.size(); ++index) {
            buttons_[index].button.state =
                index == selected_ ? NSControlStateValueOn : NSControlStateValueOff;
        }
    }

    void chosen(std::size_t index) {
        const auto changed = changed_;
        showSelection();
        changed(index);
    }

    NSStackView *column_ = [[NSStackView alloc] initWithFrame:NSZeroRect];
    std::vector<std::string> options_;
    std::vector<Option> buttons_;
    std::size_t selected_ = 0;
    Handler<std::size_t> changed_;
};

} // namespace

std::unique_ptr<RenderedContent> makeRadioGroup() { return std::make_unique<RenderedRadioGroup>(); }

} // namespace corvane::macos
