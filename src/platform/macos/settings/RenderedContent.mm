#import "platform/macos/settings/RenderedContent.h"

#import "platform/macos/support/Text.h"

namespace corvane::macos {

namespace {

struct Maker {
    std::unique_ptr<RenderedContent> operator()(const Stack & /*unused*/) { return makeStack(); }
    std::unique_ptr<RenderedContent> operator()(const Text & /*unused*/) { return makeText(); }
    std::unique_ptr<RenderedContent> operator()(const SymbolImage & /*unused*/) {
        return makeSymbolImage();
    }
    std::unique_ptr<RenderedContent> operator()(const FileImage & /*unused*/) {
        return makeFileImage();
    }
    std::unique_ptr<RenderedContent> operator()(const Button & /*unused*/) { return makeButton(); }
    std::unique_ptr<RenderedContent> operator()(const Toggle & /*unused*/) { return makeToggle(); }
    std::unique_ptr<RenderedContent> operator()(const Picker &picker) {
        return picker.style == PickerStyle::radioGroup ? makeRadioGroup() : makePopUpButton();
    }
    std::unique_ptr<RenderedContent> operator()(const NumberField & /*unused*/) {
        return makeNumberField();
    }
    std::unique_ptr<RenderedContent> operator()(const Stepper & /*unused*/) {
        return makeStepper();
    }
    std::unique_ptr<RenderedContent> operator()(const TextField & /*unused*/) {
        return makeTextField();
    }
    std::unique_ptr<RenderedContent> operator()(const Divider & /*unused*/) {
        return makeDivider();
    }
    std::unique_ptr<RenderedContent> operator()(const MenuButton & /*unused*/) {
        return makeMenuButton();
    }
    std::unique_ptr<RenderedContent> operator()(const Link & /*unused*/) { return makeLink(); }
};

} // namespace

std::unique_ptr<RenderedContent> makeContent(const View &view) {
    return std::visit(Maker(), view.content);
}

bool areOfOneKind(const View &view, const View &other) {
    if (view.content.index() != other.content.index()) {
        return false;
    }
    const auto *picker = std::get_if<Picker>(&view.content);
    return picker == nullptr || picker->style == std::get<Picker>(other.content).style;
}

void prepareControl(NSView *control, const View &view) {
    [control setContentHuggingPriority:NSLayoutPriorityDefaultHigh
                        forOrientation:NSLayoutConstraintOrientationHorizontal];
    if (!view.accessibilityLabel.empty()) {
        control.accessibilityLabel = systemText(view.accessibilityLabel);
    }
}

void describe(NSView *shown, const View &view) {
    shown.accessibilityElement = !view.accessibilityLabel.empty();
    shown.accessibilityLabel = systemText(view.accessibilityLabel);
}

} // namespace corvane::macos
