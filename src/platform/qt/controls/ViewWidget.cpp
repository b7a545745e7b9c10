#include "platform/qt/controls/ViewWidget.h"

#include "platform/qt/controls/ButtonWidget.h"
#include "platform/qt/controls/FieldWidgets.h"
#include "platform/qt/controls/LinkWidget.h"
#include "platform/qt/controls/MenuButtonWidget.h"
#include "platform/qt/controls/PickerWidgets.h"
#include "platform/qt/controls/PictureWidgets.h"
#include "platform/qt/controls/StackWidget.h"
#include "platform/qt/controls/StepperWidget.h"
#include "platform/qt/controls/TextWidget.h"
#include "platform/qt/controls/ToggleWidget.h"

#include <algorithm>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

namespace {

bool hasFrame(const View &view) {
    return view.padding != Insets{} || view.minHeight || view.fullWidth || view.background;
}

struct WidgetMaker {
    drawing::SymbolImages &symbols;

    ViewWidget *operator()(const Stack &) const { return new StackWidget(symbols); }
    ViewWidget *operator()(const Text &) const { return new TextWidget; }
    ViewWidget *operator()(const SymbolImage &) const { return new SymbolWidget(symbols); }
    ViewWidget *operator()(const FileImage &) const { return new FileImageWidget; }
    ViewWidget *operator()(const Button &) const { return new ButtonWidget(symbols); }
    ViewWidget *operator()(const Toggle &) const { return new ToggleWidget(symbols); }
    ViewWidget *operator()(const Picker &picker) const {
        if (picker.style == PickerStyle::radioGroup) {
            return new RadioGroupWidget;
        }
        return new MenuPickerWidget;
    }
    ViewWidget *operator()(const NumberField &) const { return new NumberFieldWidget; }
    ViewWidget *operator()(const Stepper &) const { return new StepperWidget; }
    ViewWidget *operator()(const TextField &) const { return new TextFieldWidget; }
    ViewWidget *operator()(const Divider &) const { return new DividerWidget; }
    ViewWidget *operator()(const MenuButton &) const { return new MenuButtonWidget(symbols); }
    ViewWidget *operator()(const Link &) const { return new LinkWidget(symbols); }
};

} // namespace

WidgetKind kindOf(const View &view) {
    return {.view = views::kindOf(view),
            .isBoxed = hasFrame(view) && !std::holds_alternative<Stack>(view.content)};
}

ViewWidget *makeViewWidget(const View &view, drawing::SymbolImages &symbols) {
    if (kindOf(view).isBoxed) {
        return new StackWidget(symbols);
    }
    return std::visit(WidgetMaker{symbols}, view.content);
}

bool fillsWidth(const View &view) {
    if (view.width) {
        return false;
    }
    const auto *stack = std::get_if<Stack>(&view.content);
    return view.fullWidth || std::holds_alternative<TextField>(view.content) ||
           std::holds_alternative<Divider>(view.content) ||
           (stack && std::ranges::any_of(stack->children, fillsWidth));
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
