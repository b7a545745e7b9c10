#include "GnomeShell.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

bool GnomeShell::isRunning() { return evaluate(u"!Main.layoutManager._startingUp"_s) == u"true"; }

std::optional<QString> GnomeShell::evaluate(const QString &expression) {
    auto call = QDBusMessage::createMethodCall(u"org.gnome.Shell"_s, u"/org/gnome/Shell"_s,
                                               u"org.gnome.Shell"_s, u"Eval"_s);
    call << expression;
    const auto answer = QDBusConnection::sessionBus().call(call).arguments();
    return answer.size() == 2 && answer.front().toBool() ? std::optional(answer.back().toString())
                                                         : std::nullopt;
}

} // namespace corvane::desktop
