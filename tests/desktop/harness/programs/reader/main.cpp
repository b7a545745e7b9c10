// A screen reader, as far as a test needs one. Its commands: "window" with a title reports what is
// said about everything in that window of a program, a line each, "focus" what has the keyboard.

#include "CommandInput.h"
#include "SpokenControl.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

/// How objects are named on the accessibility bus.
struct Reference {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument &operator<<(QDBusArgument &argument, const Reference &reference) {
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Reference &reference) {
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

} // namespace corvane::desktop

Q_DECLARE_METATYPE(corvane::desktop::Reference)

namespace corvane::desktop {

namespace {

const QString accessible = u"org.a11y.atspi.Accessible"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;

/// An object of a program as assistive technology sees it, over the accessibility bus (AT-SPI).
/// What the program does not answer is empty.
class AccessibleObject {
  public:
    /// Positions in the set of states.
    enum class State {
        active = 1,
        checked = 4,
        enabled = 8,
        focused = 12,
        selected = 23,
        showing = 25
    };

    AccessibleObject(QDBusConnection bus, Reference reference)
        : bus_(std::move(bus)),
          reference_(std::move(reference)) {}

    /// Where all programs are found.
    static AccessibleObject root(const QDBusConnection &bus) {
        return {
            bus,
            {u"org.a11y.atspi.Registry"_s, QDBusObjectPath(u"/org/a11y/atspi/accessible/root"_s)}};
    }

    std::string name() const { return property(accessible, u"Name"_s).toString().toStdString(); }

    bool is(State state) const {
        constexpr int bits = 32;
        const auto position = static_cast<int>(state);
        const auto words = qdbus_cast<QList<uint>>(call(accessible, u"GetState"_s));
        return (words.value(position / bits) >> (position % bits) & 1U) != 0;
    }

    std::vector<AccessibleObject> children() const {
        std::vector<AccessibleObject> children;
        for (const auto &child : qdbus_cast<QList<Reference>>(call(accessible, u"GetChildren"_s))) {
            children.emplace_back(bus_, child);
        }
        return children;
    }

    /// With everything that a screen reader says about it.
    SpokenControl control() const {
        SpokenControl control{.role = call(accessible, u"GetRoleName"_s).toString().toStdString(),
                              .name = name(),
                              .isSelected = is(State::selected),
                              .isChecked = is(State::checked),
                              .isEnabled = is(State::enabled),
                              .description =
                                  property(accessible, u"Description"_s).toString().toStdString()};
        const QString value = u"org.a11y.atspi.Value"_s;
        const QString text = u"org.a11y.atspi.Text"_s;
        if (control.role == "spin box" && has(value)) {
            const double number = property(value, u"CurrentValue"_s).toDouble();
            control.number = QString::number(number, 'f', 0).toStdString();
        } else if (has(u"org.a11y.atspi.EditableText"_s)) {
            control.text = call(text, u"GetText"_s, {0, -1}).toString().toStdString();
        }
        return control;
    }

  private:
    QVariant call(const QString &interface, const QString &method,
                  const QVariantList &arguments = {}) const {
        QDBusMessage message = QDBusMessage::createMethodCall(
            reference_.service, reference_.path.path(), interface, method);
        message.setArguments(arguments);
        return bus_.call(message).arguments().value(0);
    }

    QVariant property(const QString &interface, const QString &name) const {
        return call(properties, u"Get"_s, {interface, name}).value<QDBusVariant>().variant();
    }

    bool has(const QString &interface) const {
        return call(accessible, u"GetInterfaces"_s).toStringList().contains(interface);
    }

    QDBusConnection bus_;
    Reference reference_;
};

using State = AccessibleObject::State;

QDBusMessage callBus(const QString &interface, const QString &method,
                     const QVariantList &arguments = {}) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, interface, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message);
}

bool switchOn(const QString &property) {
    return callBus(properties, u"Set"_s,
                   {u"org.a11y.Status"_s, property, QVariant::fromValue(QDBusVariant(true))})
               .type() == QDBusMessage::ReplyMessage;
}

/// Switches assistive technology on for the session and connects to its bus; not connected where
/// that cannot be done.
QDBusConnection connectToAccessibilityBus() {
    qDBusRegisterMetaType<Reference>();
    qDBusRegisterMetaType<QList<Reference>>();
    if (!switchOn(u"IsEnabled"_s) || !switchOn(u"ScreenReaderEnabled"_s)) {
        return QDBusConnection(QString());
    }
    const auto address = callBus(u"org.a11y.Bus"_s, u"GetAddress"_s).arguments().value(0);
    return QDBusConnection::connectToBus(address.toString(), u"accessibility"_s);
}

std::vector<AccessibleObject> windowsOn(const QDBusConnection &bus) {
    std::vector<AccessibleObject> windows;
    for (const AccessibleObject &program : AccessibleObject::root(bus).children()) {
        for (AccessibleObject &window : program.children()) {
            windows.push_back(std::move(window));
        }
    }
    return windows;
}

void readEverything(const AccessibleObject &object) {
    if (!object.is(State::showing)) {
        return;
    }
    const SpokenControl control = object.control();
    if (const auto line = control.line()) {
        report(*line);
    }
    if (!SpokenControl::isSpokenWhole(control.role)) {
        for (const AccessibleObject &child : object.children()) {
            readEverything(child);
        }
    }
}

bool readWindow(const QDBusConnection &bus, const std::string &title) {
    for (const AccessibleObject &window : windowsOn(bus)) {
        if (window.name() == title && window.is(State::showing)) {
            readEverything(window);
            return true;
        }
    }
    return false;
}

/// The innermost object that has the keyboard: the line of an open menu rather than its button.
std::optional<AccessibleObject> focusIn(const AccessibleObject &object) {
    if (!object.is(State::showing)) {
        return std::nullopt;
    }
    for (const AccessibleObject &child : object.children()) {
        if (const auto found = focusIn(child)) {
            return found;
        }
    }
    return object.is(State::focused) ? std::optional(object) : std::nullopt;
}

bool readFocus(const QDBusConnection &bus) {
    for (const AccessibleObject &window : windowsOn(bus)) {
        const auto focus = window.is(State::active) ? focusIn(window) : std::nullopt;
        if (focus) {
            const SpokenControl control = focus->control();
            report(control.line().value_or(control.role));
            return true;
        }
    }
    return false;
}

} // namespace

} // namespace corvane::desktop

int main(int argc, char **argv) {
    using namespace corvane::desktop;
    const QCoreApplication application(argc, argv);
    const QDBusConnection bus = connectToAccessibilityBus();
    const CommandInput commands([&bus](const std::vector<std::string> &fields) {
        return fields.front() == "window" ? readWindow(bus, fields.at(1)) : readFocus(bus);
    });
    return bus.isConnected() ? QCoreApplication::exec() : 1;
}
