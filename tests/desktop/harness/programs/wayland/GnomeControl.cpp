#include "GnomeControl.h"

#include "CommandInput.h"
#include "GnomeShell.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

QString text(const std::string &field) { return QString::fromStdString(field); }

/// The window that has that title or belongs to that application, of those that are shown.
QString windowCalled(const std::string &name) {
    return u"global.get_window_actors().map(actor => actor.meta_window).find("
           u"window => window.title === '%1' || window.wm_class === '%1')"_s.arg(text(name));
}

/// Reports the elements of the array that the expression gives.
bool reportArray(const QString &expression) {
    const auto value = GnomeShell::evaluate(expression);
    const auto elements = QJsonDocument::fromJson(value.value_or(QString()).toUtf8()).array();
    QStringList texts;
    for (const auto &element : elements) {
        texts << element.toVariant().toString();
    }
    report(texts.join(u'\t').toStdString());
    return !texts.isEmpty();
}

bool savePicture(const std::string &file) {
    auto call = QDBusMessage::createMethodCall(u"org.gnome.Shell.Screenshot"_s,
                                               u"/org/gnome/Shell/Screenshot"_s,
                                               u"org.gnome.Shell.Screenshot"_s, u"Screenshot"_s);
    constexpr bool includesCursor = false;
    constexpr bool flashes = false;
    call << includesCursor << flashes << text(file);
    const auto answer = QDBusConnection::sessionBus().call(call).arguments();
    return !answer.isEmpty() && answer.front().toBool();
}

} // namespace

GnomeControl::GnomeControl() {
    GnomeShell::evaluate(u"void (global.corvaneKeyboard = imports.gi.Clutter.get_default_backend()"
                         u".get_default_seat().create_virtual_device("
                         u"imports.gi.Clutter.InputDeviceType.KEYBOARD_DEVICE))"_s);
}

bool GnomeControl::carryOut(const std::vector<std::string> &fields) const {
    const std::string &command = fields.at(0);
    if (command == "variables") {
        return reportArray(
            u"['DISPLAY', 'XAUTHORITY'].map(name => imports.gi.GLib.getenv(name))"_s);
    }
    // What a press of the button in the top bar does.
    if (command == "revoke") {
        return GnomeShell::evaluate(u"Main.panel.statusArea.screenSharing._stopSharing()"_s)
            .has_value();
    }
    if (command == "desk") {
        return GnomeShell::evaluate(u"Main.overview.hide()"_s).has_value();
    }
    if (command == "key") {
        return GnomeShell::evaluate(
                   u"global.corvaneKeyboard.notify_key(imports.gi.GLib.get_monotonic_time(), %1, "
                   u"imports.gi.Clutter.KeyState.%2)"_s.arg(
                       text(fields.at(1)), fields.at(2) == "1" ? u"PRESSED"_s : u"RELEASED"_s))
            .has_value();
    }
    if (command == "place") {
        return GnomeShell::evaluate(
                   windowCalled(fields.at(1)) +
                   u".move_frame(true, %1, %2)"_s.arg(text(fields.at(2)), text(fields.at(3))))
            .has_value();
    }
    if (command == "focused") {
        return reportArray(u"[global.display.focus_window].map(window => window.title)"_s);
    }
    if (command == "where") {
        return reportArray(u"[%1.get_frame_rect()].flatMap("
                           u"frame => [frame.x, frame.y, frame.width, frame.height])"_s.arg(
                               windowCalled(fields.at(1))));
    }
    return command == "picture" && savePicture(fields.at(1));
}

} // namespace corvane::desktop
