#include "support/ViewUser.h"

#include <algorithm>
#include <stdexcept>

namespace corvane::testing {

namespace {

template <typename Visitor>
void forEachView(const View &view, const Visitor &visit) {
    visit(view);
    if (const auto *stack = std::get_if<Stack>(&view.content)) {
        for (const View &child : stack->children) {
            forEachView(child, visit);
        }
    } else if (const auto *link = std::get_if<Link>(&view.content)) {
        for (const View &label : link->label) {
            forEachView(label, visit);
        }
    }
}

/// The one view of that kind for which the condition holds.
template <typename Content, typename Condition>
const View &onlyView(const View &tree, const std::string &description, const Condition &condition) {
    std::vector<const View *> found;
    forEachView(tree, [&](const View &view) {
        const auto *content = std::get_if<Content>(&view.content);
        if (content && condition(view, *content)) {
            found.push_back(&view);
        }
    });
    if (found.size() != 1) {
        throw std::logic_error(std::to_string(found.size()) + " instead of one " + description);
    }
    return *found.front();
}

template <typename Content, typename Condition>
const Content &only(const View &tree, const std::string &description, const Condition &condition) {
    return std::get<Content>(onlyView<Content>(tree, description, condition).content);
}

template <typename Content>
const Content &titled(const View &tree, const std::string &title) {
    return only<Content>(
        tree, "control titled " + title,
        [&](const View &, const Content &content) { return content.title == title; });
}

template <typename Content>
const Content &labelled(const View &tree, const std::string &label) {
    return only<Content>(tree, "control labelled " + label, [&](const View &view, const Content &) {
        return view.accessibilityLabel == label;
    });
}

} // namespace

std::vector<std::string> ViewUser::texts() const {
    std::vector<std::string> texts;
    forEachView(tree_, [&](const View &view) {
        if (const auto *text = std::get_if<Text>(&view.content)) {
            texts.push_back(text->text);
        }
    });
    return texts;
}

bool ViewUser::isToggleOn(const std::string &title) const {
    return titled<Toggle>(tree_, title).isOn;
}

bool ViewUser::isButtonEnabled(const std::string &title) const {
    return titled<Button>(tree_, title).isEnabled;
}

ViewUser ViewUser::inside(const std::string &label) const {
    return ViewUser(
        onlyView<Stack>(tree_, "stack labelled " + label, [&](const View &view, const Stack &) {
            return view.accessibilityLabel == label;
        }));
}

void ViewUser::press(const std::string &title) const {
    const auto &button = titled<Button>(tree_, title);
    if (!button.isEnabled) {
        throw std::logic_error("disabled: " + title);
    }
    button.action();
}

void ViewUser::pressReturn() const {
    only<Button>(tree_, "default button", [](const View &, const Button &button) {
        return button.isDefaultAction;
    }).action();
}

void ViewUser::turn(const std::string &toggleTitle, bool isOn) const {
    titled<Toggle>(tree_, toggleTitle).changed(isOn);
}

void ViewUser::choose(const std::string &pickerLabel, const std::string &option) const {
    const auto &picker = labelled<Picker>(tree_, pickerLabel);
    const auto found = std::ranges::find(picker.options, option);
    if (found == picker.options.end()) {
        throw std::logic_error("no option " + option);
    }
    picker.changed(static_cast<std::size_t>(found - picker.options.begin()));
}

void ViewUser::enterNumber(const std::string &label, std::int64_t value) const {
    labelled<NumberField>(tree_, label).changed(value);
}

void ViewUser::stepUp(const std::string &label) const {
    const auto &stepper = labelled<Stepper>(tree_, label);
    if (const auto next = stepper.incremented()) {
        stepper.changed(*next);
    }
}

void ViewUser::stepDown(const std::string &label) const {
    const auto &stepper = labelled<Stepper>(tree_, label);
    if (const auto next = stepper.decremented()) {
        stepper.changed(*next);
    }
}

void ViewUser::type(const std::string &label, const std::string &text) const {
    labelled<TextField>(tree_, label).changed(text);
}

void ViewUser::chooseMenuItem(const std::string &menuLabel, const std::string &title) const {
    const auto &menu = labelled<MenuButton>(tree_, menuLabel);
    const auto found = std::ranges::find(menu.items, title, &MenuButtonItem::title);
    if (found == menu.items.end()) {
        throw std::logic_error("no menu item " + title);
    }
    found->action();
}

void ViewUser::followLink(const std::string &address) const {
    only<Link>(tree_, "link to " + address, [&](const View &, const Link &link) {
        return link.address == address;
    }).action();
}

} // namespace corvane::testing
