#include "SpokenText.h"

#include "SpokenControl.h"

#include <QAccessible>
#include <QWidget>

#include <map>

namespace corvane::contract {

namespace {

using desktop::SpokenControl;

/// As Qt names the role to AT-SPI; empty for what only holds others.
std::string roleName(QAccessible::Role role) {
    static const std::map<QAccessible::Role, std::string> names{
        {QAccessible::PageTab, "page tab"},       {QAccessible::StaticText, "label"},
        {QAccessible::PushButton, "push button"}, {QAccessible::Button, "push button"},
        {QAccessible::CheckBox, "check box"},     {QAccessible::RadioButton, "radio button"},
        {QAccessible::ComboBox, "combo box"},     {QAccessible::EditableText, "text"},
        {QAccessible::SpinBox, "spin box"},       {QAccessible::Link, "link"},
        {QAccessible::ButtonMenu, "button menu"}, {QAccessible::Grouping, "panel"}};
    const auto name = names.find(role);
    return name != names.end() ? name->second : std::string();
}

SpokenControl controlOf(QAccessibleInterface &item) {
    const QAccessible::State state = item.state();
    SpokenControl control{.role = roleName(item.role()),
                          .name = item.text(QAccessible::Name).toStdString(),
                          .isSelected = state.selected != 0,
                          .isChecked = state.checked != 0,
                          .isEnabled = state.disabled == 0,
                          .description = item.text(QAccessible::Description).toStdString()};
    if (item.role() == QAccessible::EditableText) {
        control.text = item.text(QAccessible::Value).toStdString();
    } else if (auto *value = item.valueInterface()) {
        control.number = value->currentValue().toString().toStdString();
    }
    return control;
}

void append(std::vector<std::string> &lines, QAccessibleInterface &item) {
    if (item.state().invisible) {
        return;
    }
    const SpokenControl control = controlOf(item);
    if (const auto line = control.line()) {
        lines.push_back(*line);
    }
    for (int index = 0; !SpokenControl::isSpokenWhole(control.role) && index < item.childCount();
         ++index) {
        append(lines, *item.child(index));
    }
}

} // namespace

std::vector<std::string> spokenText(QWidget &window) {
    std::vector<std::string> lines;
    append(lines, *QAccessible::queryAccessibleInterface(&window));
    return lines;
}

} // namespace corvane::contract
