#include "platform/linux/commands/BusCommands.h"

#include "platform/linux/commands/CommandAddress.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace corvane::linux {

namespace {

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

QString path() { return QString::fromStdString(commandBusPath()); }
QString interface() { return QString::fromStdString(commandBusInterface()); }

QDBusMessage callToBus(const QString &method, const QVariantList &arguments) {
    auto call = QDBusMessage::createMethodCall(busService, busPath, busService, method);
    call.setArguments(arguments);
    return call;
}

CommandRequest wordsIn(const QDBusMessage &message) {
    CommandRequest words;
    for (const QString &word : message.arguments().value(0).toStringList()) {
        words.push_back(word.toStdString());
    }
    return words;
}

} // namespace

BusCommands::BusCommands(std::vector<std::string> names, platform::CommandEndpoint::Obey obey,
                         uid_t user)
    : names_(std::move(names)),
      obey_(std::move(obey)),
      user_(user),
      bus_([this] { listen(); }) {
    listen();
}

BusCommands::~BusCommands() {
    connection().unregisterObject(path());
    awaitDelivery();
}

void BusCommands::listen() {
    connection().registerVirtualObject(path(), this);
    for (const std::string &name : names_) {
        requestName(name);
    }
}

/// The bus takes messages in their order, and so sends no later answer before.
void BusCommands::releaseNames() {
    for (const std::string &name : names_) {
        connection().send(callToBus(QStringLiteral("ReleaseName"), {QString::fromStdString(name)}));
    }
}

/// The program may end before the toolkit's thread has sent the answers. When the bus has answered,
/// it has all that was sent before.
void BusCommands::awaitDelivery() const {
    constexpr int patienceMilliseconds = 1000;
    connection().call(callToBus(QStringLiteral("GetId"), {}), QDBus::Block, patienceMilliseconds);
}

/// Waits in line behind a program that has it.
void BusCommands::requestName(const std::string &name) {
    constexpr uint waitInLine = 0;
    connection().send(
        callToBus(QStringLiteral("RequestName"), {QString::fromStdString(name), waitInLine}));
}

QString BusCommands::introspect(const QString & /*path*/) const {
    return QStringLiteral("<interface name=\"%1\"><method name=\"Run\">"
                          "<arg name=\"words\" type=\"as\" direction=\"in\"/>"
                          "<arg name=\"result\" type=\"i\" direction=\"out\"/>"
                          "<arg name=\"output\" type=\"s\" direction=\"out\"/>"
                          "<arg name=\"error\" type=\"s\" direction=\"out\"/>"
                          "</method></interface>")
        .arg(interface());
}

bool BusCommands::handleMessage(const QDBusMessage &message,
                                const QDBusConnection & /*connection*/) {
    const bool isOurs = message.interface().isEmpty() || message.interface() == interface();
    if (message.type() != QDBusMessage::MethodCallMessage || !isOurs ||
        message.member() != QLatin1String("Run") || message.signature() != QLatin1String("as")) {
        return false;
    }
    checkUser(message);
    return true;
}

void BusCommands::checkUser(const QDBusMessage &message) {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): deletes itself when it has finished
    auto *pending = new QDBusPendingCallWatcher(
        connection().asyncCall(
            callToBus(QStringLiteral("GetConnectionUnixUser"), {message.service()})),
        this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, message] {
        pending->deleteLater();
        const QDBusPendingReply<uint> user = *pending;
        if (!user.isError() && user.value() == user_) {
            obey(message);
        } else {
            connection().send(message.createErrorReply(
                QDBusError::AccessDenied, QStringLiteral("Corvane obeys its own user only")));
        }
    });
}

void BusCommands::obey(const QDBusMessage &message) {
    obey_(wordsIn(message), [connection = connection(), message](const CommandAnswer &answer) {
        if (message.isReplyRequired()) {
            connection.send(message.createReply({static_cast<int>(answer.result),
                                                 QString::fromStdString(answer.output),
                                                 QString::fromStdString(answer.error)}));
        }
    });
}

} // namespace corvane::linux
