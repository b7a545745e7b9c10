#include "SpokenText.h"

#include <QAccessible>
#include <QHash>
#include <QWidget>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

QString roleName(QAccessible::Role role) {
    static const QHash<QAccessible::Role, QString> names = {
        {QAccessible::PageTab, u"tab"_s},        {QAccessible::StaticText, u"text"_s},
        {QAccessible::PushButton, u"button"_s},  {QAccessible::Button, u"button"_s},
        {QAccessible::CheckBox, u"check box"_s}, {QAccessible::RadioButton, u"radio button"_s},
        {QAccessible::ComboBox, u"picker"_s},    {QAccessible::EditableText, u"field"_s},
        {QAccessible::SpinBox, u"stepper"_s},    {QAccessible::Link, u"link"_s},
        {QAccessible::ButtonMenu, u"menu"_s},    {QAccessible::Grouping, u"group"_s}};
    return names.value(role);
}

/// Those whose inner parts only repeat what they say themselves.
bool isWhole(QAccessible::Role role) {
    return role == QAccessible::ComboBox || role == QAccessible::Link;
}

QString described(QAccessibleInterface &item) {
    QString text = roleName(item.role()) + u" '"_s + item.text(QAccessible::Name) + u"'"_s;
    if (item.role() == QAccessible::EditableText || item.role() == QAccessible::ComboBox) {
        text += u" = '"_s + item.text(QAccessible::Value) + u"'"_s;
    }
    if (auto *value = item.valueInterface()) {
        text += u" = "_s + value->currentValue().toString();
    }
    const QAccessible::State state = item.state();
    if (item.role() == QAccessible::PageTab && state.selected) {
        text += u" selected"_s;
    }
    text += state.checked ? u" checked"_s : QString();
    return text + (state.disabled ? u" disabled"_s : QString());
}

void append(std::vector<std::string> &lines, QAccessibleInterface &item) {
    if (item.state().invisible) {
        return;
    }
    if (!roleName(item.role()).isEmpty()) {
        lines.push_back(described(item).toStdString());
    }
    for (int index = 0; !isWhole(item.role()) && index < item.childCount(); ++index) {
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
