#include "AccessibleObject.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QStringList>

#include <utility>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString accessible = u"org.a11y.atspi.Accessible"_s;
const QString text = u"org.a11y.atspi.Text"_s;
const QString editableText = u"org.a11y.atspi.EditableText"_s;
const QString value = u"org.a11y.atspi.Value"_s;

} // namespace

AccessibleObject::AccessibleObject(QDBusConnection bus, Reference reference)
    : bus_(std::move(bus)),
      reference_(std::move(reference)) {}

AccessibleObject AccessibleObject::root(const QDBusConnection &bus) {
    return {bus,
            {u"org.a11y.atspi.Registry"_s, QDBusObjectPath(u"/org/a11y/atspi/accessible/root"_s)}};
}

QString AccessibleObject::name() const { return property(accessible, u"Name"_s).toString(); }

QString AccessibleObject::role() const { return call(accessible, u"GetRoleName"_s).toString(); }

bool AccessibleObject::is(State state) const {
    constexpr int bits = 32;
    const auto position = static_cast<int>(state);
    const auto words = qdbus_cast<QList<uint>>(call(accessible, u"GetState"_s));
    return (words.value(position / bits) >> (position % bits) & 1U) != 0;
}

std::vector<AccessibleObject> AccessibleObject::children() const {
    std::vector<AccessibleObject> children;
    for (const auto &child : qdbus_cast<QList<Reference>>(call(accessible, u"GetChildren"_s))) {
        children.emplace_back(bus_, child);
    }
    return children;
}

SpokenControl AccessibleObject::control() const {
    SpokenControl control{.role = role().toStdString(),
                          .name = name().toStdString(),
                          .isSelected = is(State::selected),
                          .isChecked = is(State::checked),
                          .isEnabled = is(State::enabled),
                          .description =
                              property(accessible, u"Description"_s).toString().toStdString()};
    if (control.role == "spin box" && has(value)) {
        const double number = property(value, u"CurrentValue"_s).toDouble();
        control.number = QString::number(number, 'f', 0).toStdString();
    } else if (has(editableText)) {
        control.text = call(text, u"GetText"_s, {0, -1}).toString().toStdString();
    }
    return control;
}

QVariant AccessibleObject::call(const QString &interface, const QString &method,
                                const QVariantList &arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(
        reference_.service, reference_.path.path(), interface, method);
    message.setArguments(arguments);
    return bus_.call(message).arguments().value(0);
}

QVariant AccessibleObject::property(const QString &interface, const QString &name) const {
    return call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, name})
        .value<QDBusVariant>()
        .variant();
}

bool AccessibleObject::has(const QString &interface) const {
    return call(accessible, u"GetInterfaces"_s).toStringList().contains(interface);
}

QDBusArgument &operator<<(QDBusArgument &argument, const AccessibleObject::Reference &reference) {
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument,
                                AccessibleObject::Reference &reference) {
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

} // namespace corvane::desktop
