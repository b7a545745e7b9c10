#import "platform/macos/settings/Area.h"
#import "platform/macos/settings/MacActionTarget.h"
#import "platform/macos/settings/Styles.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

#include <vector>

namespace corvane::macos {

namespace {

/// Points between the box, the symbol and the title, and between two choices.
constexpr CGFloat labelSpacing = 5;
constexpr CGFloat optionSpacing = 6;

NSControlStateValue systemState(bool isOn) {
    return isOn ? NSControlStateValueOn : NSControlStateValueOff;
}

/// A check box whose label begins with a symbol.
class ToggleArea : public Area {
  public:
    ToggleArea(const View &view, NSStackView *row) : Area(view, row), row_(row) {
        row_.spacing = labelSpacing;
        for (NSView *part in @[ box_, symbol_, label_ ]) {
            [row_ addArrangedSubview:part];
        }
        box_.imagePosition = NSImageOnly;
        label_.cell.accessibilityElement = NO;
        symbol_.cell.accessibilityElement = NO;
        [target_ attachTo:box_];
        for (NSView *part in @[ symbol_, label_ ]) {
            [part addGestureRecognizer:[[NSClickGestureRecognizer alloc]
                                           initWithTarget:box_
                                                   action:@selector(performClick:)]];
        }
    }

    Size measure(double /*width*/) override {
        const NSSize size = row_.fittingSize;
        return {size.width, size.height};
    }

  protected:
    void render() override {
        const auto &toggle = content<Toggle>();
        box_.state = systemState(toggle.isOn);
        box_.accessibilityLabel = systemText(toggle.title);
        symbol_.image = toggle.symbol ? symbolImage(*toggle.symbol) : nil;
        symbol_.symbolConfiguration = symbolConfiguration(view().font);
        symbol_.hidden = !toggle.symbol;
        label_.stringValue = systemText(toggle.title);
        label_.font = systemFont(view().font);
        label_.textColor = foregroundColour(view().foreground, NSColor.labelColor);
        symbol_.contentTintColor = label_.textColor;
        describeControl(box_);
    }

  private:
    void clicked() {
        const bool isWanted = box_.state == NSControlStateValueOn;
        // Whether the state changes is for the receiver to say.
        box_.state = systemState(content<Toggle>().isOn);
        content<Toggle>().changed(isWanted);
    }

    NSStackView *row_;
    NSButton *box_ = [NSButton checkboxWithTitle:@"" target:nil action:nullptr];
    NSImageView *symbol_ = [[NSImageView alloc] initWithFrame:NSZeroRect];
    NSTextField *label_ = [NSTextField labelWithString:@""];
    MacActionTarget *target_ = [[MacActionTarget alloc] initWithAction:[this] { clicked(); }];
};

class RadioGroupArea : public Area {
  public:
    RadioGroupArea(const View &view, NSStackView *column) : Area(view, column), column_(column) {
        column_.orientation = NSUserInterfaceLayoutOrientationVertical;
        column_.alignment = NSLayoutAttributeLeading;
        column_.spacing = optionSpacing;
        column_.accessibilityRole = NSAccessibilityRadioGroupRole;
    }

    Size measure(double /*width*/) override {
        const NSSize size = column_.fittingSize;
        return {size.width, size.height};
    }

  protected:
    void render() override {
        if (options_ != content<Picker>().options) {
            options_ = content<Picker>().options;
            makeButtons();
        }
        showSelection();
        describe(column_);
    }

  private:
    void makeButtons() {
        for (NSButton *button in buttons_) {
            [button removeFromSuperview];
        }
        [buttons_ removeAllObjects];
        [targets_ removeAllObjects];
        for (std::size_t index = 0; index < options_.size(); ++index) {
            MacActionTarget *target =
                [[MacActionTarget alloc] initWithAction:[this, index] { chosen(index); }];
            NSButton *button = [NSButton radioButtonWithTitle:systemText(options_[index])
                                                       target:nil
                                                       action:nullptr];
            [target attachTo:button];
            [column_ addArrangedSubview:button];
            [buttons_ addObject:button];
            [targets_ addObject:target];
        }
    }

    void showSelection() {
        for (NSUInteger index = 0; index < buttons_.count; ++index) {
            buttons_[index].state = systemState(index == content<Picker>().selected);
        }
    }

    void chosen(std::size_t index) {
        showSelection();
        content<Picker>().changed(index);
    }

    NSStackView *column_;
    std::vector<std::string> options_;
    NSMutableArray<NSButton *> *buttons_ = [NSMutableArray array];
    NSMutableArray<MacActionTarget *> *targets_ = [NSMutableArray array];
};

class PopUpArea : public Area {
  public:
    PopUpArea(const View &view, NSPopUpButton *button) : Area(view, button), button_(button) {
        [target_ attachTo:button_];
    }

  protected:
    void render() override {
        if (options_ != content<Picker>().options) {
            options_ = content<Picker>().options;
            makeOptions();
        }
        showSelection();
        describeControl(button_);
    }

  private:
    void makeOptions() {
        [button_ removeAllItems];
        for (const std::string &option : options_) {
            // Through the menu, which unlike the button keeps two options of one title.
            [button_.menu addItemWithTitle:systemText(option) action:nullptr keyEquivalent:@""];
        }
    }

    void showSelection() {
        [button_ selectItemAtIndex:static_cast<NSInteger>(content<Picker>().selected)];
    }

    void chosen() {
        const NSInteger index = button_.indexOfSelectedItem;
        showSelection();
        if (index >= 0) {
            content<Picker>().changed(static_cast<std::size_t>(index));
        }
    }

    NSPopUpButton *button_;
    MacActionTarget *target_ = [[MacActionTarget alloc] initWithAction:[this] { chosen(); }];
    std::vector<std::string> options_;
};

} // namespace

std::unique_ptr<Area> makeToggleArea(const View &view) {
    return std::make_unique<ToggleArea>(view, [[NSStackView alloc] initWithFrame:NSZeroRect]);
}

std::unique_ptr<Area> makeRadioGroupArea(const View &view) {
    return std::make_unique<RadioGroupArea>(view, [[NSStackView alloc] initWithFrame:NSZeroRect]);
}

std::unique_ptr<Area> makePopUpArea(const View &view) {
    return std::make_unique<PopUpArea>(view, [[NSPopUpButton alloc] initWithFrame:NSZeroRect
                                                                        pullsDown:NO]);
}

} // namespace corvane::macos
