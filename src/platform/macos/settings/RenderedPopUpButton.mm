#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/support/Text.h"

#include <vector>

namespace corvane::macos {

namespace {

class RenderedPopUpButton : public RenderedContent {
  public:
    RenderedPopUpButton() { [target_ attachTo:button_]; }

    NSView *view() const override { return button_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        const auto &picker = std::get<Picker>(next.content);
        selected_ = static_cast<NSInteger>(picker.selected);
        changed_ = picker.changed;
        if (options_ != picker.options) {
            options_ = picker.options;
            makeOptions();
        }
        [button_ selectItemAtIndex:selected_];
        prepareControl(button_, next);
    }

  private:
    void makeOptions() {
        [button_ removeAllItems];
        for (const std::string &option : options_) {
            // Through the menu, which unlike the button keeps two options of one title.
            [button_.menu addItemWithTitle:systemText(option) action:nullptr keyEquivalent:@""];
        }
    }

    void chosen() {
        const NSInteger index = button_.indexOfSelectedItem;
        const auto changed = changed_;
        [button_ selectItemAtIndex:selected_];
        if (index >= 0) {
            changed(static_cast<std::size_t>(index));
        }
    }

    NSPopUpButton *button_ = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
    MacActionTarget *target_ = [[MacActionTarget alloc] initWithAction:[this] { chosen(); }];
    std::vector<std::string> options_;
    NSInteger selected_ = 0;
    Handler<std::size_t> changed_;
};

} // namespace

std::unique_ptr<RenderedContent> makePopUpButton() {
    return std::make_unique<RenderedPopUpButton>();
}

} // namespace corvane::macos
