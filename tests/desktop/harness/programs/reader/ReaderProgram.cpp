#include "ReaderProgram.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using State = AccessibleObject::State;

QDBusMessage callBus(const QString &interface, const QString &method,
                     const QVariantList &arguments = {}) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, interface, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message);
}

bool switchOn(const QString &property) {
    return callBus(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
                   {u"org.a11y.Status"_s, property, QVariant::fromValue(QDBusVariant(true))})
               .type() == QDBusMessage::ReplyMessage;
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

} // namespace

bool ReaderProgram::appear() {
    qDBusRegisterMetaType<AccessibleObject::Reference>();
    qDBusRegisterMetaType<QList<AccessibleObject::Reference>>();
    if (!switchOn(u"IsEnabled"_s) || !switchOn(u"ScreenReaderEnabled"_s)) {
        return false;
    }
    const QString address =
        callBus(u"org.a11y.Bus"_s, u"GetAddress"_s).arguments().value(0).toString();
    bus_ = QDBusConnection::connectToBus(address, u"accessibility"_s);
    return bus_.isConnected();
}

bool ReaderProgram::carryOut(const std::vector<std::string> &fields) const {
    return fields.front() == "window" ? readWindow(fields.at(1)) : readFocus();
}

std::vector<AccessibleObject> ReaderProgram::windows() const {
    std::vector<AccessibleObject> windows;
    for (const AccessibleObject &program : AccessibleObject::root(bus_).children()) {
        for (AccessibleObject &window : program.children()) {
            windows.push_back(std::move(window));
        }
    }
    return windows;
}

bool ReaderProgram::readWindow(const std::string &title) const {
    for (const AccessibleObject &window : windows()) {
        if (window.name().toStdString() == title && window.is(State::showing)) {
            readEverything(window);
            return true;
        }
    }
    return false;
}

bool ReaderProgram::readFocus() const {
    for (const AccessibleObject &window : windows()) {
        const auto focus = window.is(State::active) ? focusIn(window) : std::nullopt;
        if (focus) {
            const SpokenControl control = focus->control();
            report(control.line().value_or(control.role));
            return true;
        }
    }
    return false;
}

} // namespace corvane::desktop
