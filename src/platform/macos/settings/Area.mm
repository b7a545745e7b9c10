#import "platform/macos/settings/Area.h"

#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/KeptObjects.h"
#import "platform/macos/support/Text.h"

#include <algorithm>

namespace corvane::macos {

namespace {

class StackArea : public Area {
  public:
    explicit StackArea(const View &view) : Area(view, nil) {
        box().accessibilityRole = NSAccessibilityGroupRole;
    }

  protected:
    void render() override { describe(box()); }
};

struct Maker {
    const View &view;
    NSColor *ordinaryColour;

    std::unique_ptr<Area> operator()(const Stack & /*unused*/) const {
        return std::make_unique<StackArea>(view);
    }
    std::unique_ptr<Area> operator()(const Text & /*unused*/) const {
        return makeTextArea(view, ordinaryColour);
    }
    std::unique_ptr<Area> operator()(const SymbolImage & /*unused*/) const {
        return makeSymbolArea(view, ordinaryColour);
    }
    std::unique_ptr<Area> operator()(const FileImage & /*unused*/) const {
        return makeFileImageArea(view);
    }
    std::unique_ptr<Area> operator()(const Button & /*unused*/) const {
        return makeButtonArea(view);
    }
    std::unique_ptr<Area> operator()(const Toggle & /*unused*/) const {
        return makeToggleArea(view);
    }
    std::unique_ptr<Area> operator()(const Picker &picker) const {
        return picker.style == PickerStyle::radioGroup ? makeRadioGroupArea(view)
                                                       : makePopUpArea(view);
    }
    std::unique_ptr<Area> operator()(const NumberField & /*unused*/) const {
        return makeNumberFieldArea(view);
    }
    std::unique_ptr<Area> operator()(const Stepper & /*unused*/) const {
        return makeStepperArea(view);
    }
    std::unique_ptr<Area> operator()(const TextField & /*unused*/) const {
        return makeTextFieldArea(view);
    }
    std::unique_ptr<Area> operator()(const Divider & /*unused*/) const {
        return makeDividerArea(view);
    }
    std::unique_ptr<Area> operator()(const MenuButton & /*unused*/) const {
        return makeMenuButtonArea(view);
    }
    std::unique_ptr<Area> operator()(const Link & /*unused*/) const { return makeLinkArea(view); }
};

} // namespace

std::unique_ptr<views::NativeView> makeArea(const View &view, bool isInColouredLink) {
    return std::visit(Maker{view, isInColouredLink ? NSColor.linkColor : NSColor.labelColor},
                      view.content);
}

Area::Area(const View &view, NSView *control)
    : view_(view),
      control_(control),
      box_([[MacBoxView alloc] initWithFrame:NSZeroRect]) {
    if (NSView *shown = control) {
        [box_ addSubview:shown];
    }
}

Area::~Area() {
    [box_ removeFromSuperview];
    keepThroughEvents(box_);
}

void Area::show() {
    [box_ setBackground:view_.background];
    render();
}

Size Area::measure(double /*width*/) {
    const NSSize size = control_.intrinsicContentSize;
    // A negative one where the control takes any.
    return {std::max(size.width, 0.0), std::max(size.height, 0.0)};
}

void Area::place(const Rectangle &area, const Rectangle &content) {
    box_.frame = systemRectangle(area);
    control_.frame = [control_ frameForAlignmentRect:systemRectangle(content)];
}

void Area::insertChild(NativeView &child, std::size_t index) {
    NSView *parent = control_ != nil ? control_ : box_;
    NSArray<NSView *> *others = parent.subviews;
    NSView *next = index < others.count ? others[index] : nil;
    [parent addSubview:static_cast<Area &>(child).box()
            positioned:next == nil ? NSWindowAbove : NSWindowBelow
            relativeTo:next];
}

void Area::describeControl(NSView *control) const {
    if (!view_.accessibilityLabel.empty()) {
        control.accessibilityLabel = systemText(view_.accessibilityLabel);
    }
}

void Area::describe(NSView *shown) const {
    NSObject<NSAccessibility> *element = shown;
    if ([shown isKindOfClass:NSControl.class]) {
        // Of a control, screen readers meet the cell.
        if (NSCell *cell = static_cast<NSControl *>(shown).cell) {
            element = cell;
        }
    }
    element.accessibilityElement = !view_.accessibilityLabel.empty();
    element.accessibilityLabel = systemText(view_.accessibilityLabel);
}

} // namespace corvane::macos
