#include "platform/wayland/kwin/Script.h"

#include "platform/wayland/kwin/Bus.h"
#include "support/Log.h"

#include <QCoreApplication>
#include <QTemporaryFile>

#include <utility>

namespace corvane::wayland::kwin {

using namespace Qt::StringLiterals;

namespace {

RemoteObject scripting() {
    return {u"org.kde.KWin"_s, u"/Scripting"_s, u"org.kde.kwin.Scripting"_s};
}

constexpr QStringView interface = u"org.corvane.Script";

/// KWin passes on nine arguments of a call at most; the first four say whom to call.
QString withReport(const QString &text, const QString &path) {
    return u"const report = (...values) => callDBus(\"%1\", \"%2\", \"%3\", \"Report\", ...values);\n"_s
               .arg(sessionBus().baseService(), path, interface) +
           text;
}

/// KWin 5 and KWin 6 keep scripts at different paths.
bool run(int number) {
    for (const QString &path : {u"/%1"_s, u"/Scripting/Script%1"_s}) {
        const RemoteObject script{scripting().service, path.arg(number), u"org.kde.kwin.Script"_s};
        if (script.call(u"run"_s).type() == QDBusMessage::ReplyMessage) {
            return true;
        }
    }
    return false;
}

/// KWin has read the file when it has run the script.
bool runText(const QString &name, const QString &text) {
    QTemporaryFile file;
    if (!file.open() || file.write(text.toUtf8()) < 0 || !file.flush()) {
        return false;
    }
    scripting().call(u"unloadScript"_s, {name});
    const QDBusReply<int> number =
        scripting().call(u"loadScript"_s, {QVariant(file.fileName()), QVariant(name)});
    return number.isValid() && number.value() >= 0 && run(number.value());
}

} // namespace

Script::Script(const QString &name, const QString &text, Report report)
    : name_(name),
      path_(u'/' + QString(name).replace(u'-', u'_')),
      report_(std::move(report)) {
    sessionBus().registerVirtualObject(path_, this);
    if (!runText(name_, withReport(text, path_))) {
        log("KWin does not run the script " + name_.toStdString());
    }
}

Script::~Script() {
    scripting().send(u"unloadScript"_s, {name_});
    sessionBus().unregisterObject(path_);
}

void Script::deliver() { QCoreApplication::sendPostedEvents(this); }

bool Script::handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/) {
    if (message.interface() != interface) {
        return false;
    }
    report_(message.arguments());
    return true;
}

} // namespace corvane::wayland::kwin
