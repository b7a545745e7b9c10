#include "SpokenLine.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

using State = AccessibleObject::State;

namespace {

QString quoted(const QString &text) {
    // A line break would end the line.
    QString line = text;
    return u'\'' + line.replace(u'\n', u'\u2424') + u'\'';
}

/// What only holds other objects and has no name that says what they have in common.
bool isSilent(const QString &role, const QString &name) {
    return role == u"layered pane"_s || role == u"page tab list"_s ||
           (name.isEmpty() &&
            (role == u"filler"_s || role == u"panel"_s || role == u"popup menu"_s));
}

QString valueOf(const AccessibleObject &object, const QString &role) {
    if (const auto number = object.number(); number && role == u"spin box"_s) {
        return u" = "_s + QString::number(*number, 'f', 0);
    }
    const auto text = object.editableText();
    return text ? u" = "_s + quoted(*text) : QString();
}

QString statesOf(const AccessibleObject &object) {
    QString states;
    states += object.is(State::selected) ? u" selected"_s : QString();
    states += object.is(State::checked) ? u" checked"_s : QString();
    return states + (object.is(State::enabled) ? QString() : u" disabled"_s);
}

} // namespace

std::optional<std::string> spokenLine(const AccessibleObject &object) {
    const QString role = object.role();
    const QString name = object.name();
    if (isSilent(role, name)) {
        return std::nullopt;
    }
    const QString description = object.description();
    QString line = role + u' ' + quoted(name) + valueOf(object, role) + statesOf(object);
    // What repeats the name is not said again.
    if (!description.isEmpty() && description != name) {
        line += u" for "_s + quoted(description);
    }
    return line.toStdString();
}

bool isSpokenWhole(const AccessibleObject &object) {
    const QString role = object.role();
    return role == u"combo box"_s || role == u"link"_s;
}

} // namespace corvane::desktop
