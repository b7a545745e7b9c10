// A login manager (org.freedesktop.login1) with one session, that of whichever program calls. Its
// commands: "lock", "unlock", "switch away" and "sleep" send what the real one sends then; "is
// known" is refused until a program has called for the path of its session.

#include "CommandInput.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace {

using namespace Qt::StringLiterals;

const QString managerPath = u"/org/freedesktop/login1"_s;
const QString sessionPath = u"/org/freedesktop/login1/session/_31"_s;
const QString sessionInterface = u"org.freedesktop.login1.Session"_s;

class LoginManager : public QDBusVirtualObject {
  public:
    /// Takes the name on the bus; false where that fails.
    bool appear() {
        return bus_.registerVirtualObject(managerPath, this) &&
               bus_.registerService(u"org.freedesktop.login1"_s);
    }

    bool carryOut(const std::string &command) {
        if (command == "lock" || command == "unlock") {
            return send(sessionPath, sessionInterface, command == "lock" ? u"Lock"_s : u"Unlock"_s);
        }
        if (command == "switch away") {
            return send(sessionPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
                        {sessionInterface, QVariantMap{{u"Active"_s, false}}, QStringList()});
        }
        if (command == "sleep") {
            return send(managerPath, u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s,
                        {true});
        }
        return command == "is known" && isKnown_;
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        if (!message.member().startsWith("GetSession"_L1)) {
            return false;
        }
        isKnown_ = true;
        return connection.send(
            message.createReply(QVariant::fromValue(QDBusObjectPath(sessionPath))));
    }

  private:
    bool send(const QString &path, const QString &interface, const QString &name,
              const QVariantList &arguments = {}) {
        auto signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(arguments);
        return bus_.send(signal);
    }

    QDBusConnection bus_ = QDBusConnection::systemBus();
    bool isKnown_ = false;
};

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    LoginManager manager;
    const corvane::desktop::CommandInput input(
        [&manager](const auto &fields) { return manager.carryOut(fields.front()); });
    return manager.appear() ? QCoreApplication::exec() : 1;
}
