#include "platform/linux/commands/CommandCall.h"

#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/linux/commands/CommandAddress.h"
#include "platform/posix/CommandSender.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QStringList>

#include <chrono>

namespace corvane::linux {

namespace {

/// Answers come at once, whatever the program is doing.
constexpr std::chrono::milliseconds patience{15000};

QDBusMessage callTo(const std::string &busName, const CommandRequest &request) {
    QStringList words;
    for (const std::string &word : request) {
        words << QString::fromStdString(word);
    }
    auto call = QDBusMessage::createMethodCall(
        QString::fromStdString(busName), QString::fromStdString(commandBusPath()),
        QString::fromStdString(commandBusInterface()), QStringLiteral("Run"));
    call.setArguments({words});
    call.setAutoStartService(false);
    return call;
}

/// Nothing when the bus does not lead there.
std::optional<CommandAnswer> callByBus(const std::string &busName, const CommandRequest &request) {
    const auto bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("command-call"));
    const auto reply =
        bus.call(callTo(busName, request), QDBus::Block, static_cast<int>(patience.count()));
    QDBusConnection::disconnectFromBus(bus.name());
    if (reply.type() == QDBusMessage::ReplyMessage && reply.signature() == QLatin1String("iss")) {
        return CommandAnswer{static_cast<CommandResult>(reply.arguments().at(0).toInt()),
                             reply.arguments().at(1).toString().toStdString(),
                             reply.arguments().at(2).toString().toStdString()};
    }
    // It may have been obeyed: to ask again in another way could do it twice.
    const bool mayHaveArrived = reply.errorName() == QDBusError::errorString(QDBusError::NoReply) ||
                                reply.errorName() == QDBusError::errorString(QDBusError::Timeout) ||
                                reply.errorName() == QDBusError::errorString(QDBusError::TimedOut);
    return mayHaveArrived ? std::optional(noAnswer()) : std::nullopt;
}

} // namespace

std::optional<CommandAnswer> callRunning(const CommandRequest &request) {
    const bool hasBus = freedesktop::hasSessionBus();
    for (const CommandAddress &address : commandAddresses()) {
        auto answer =
            hasBus && !address.busName.empty() ? callByBus(address.busName, request) : std::nullopt;
        if (!answer && !address.socket.empty()) {
            answer = posix::sendCommand(address.socket, request, patience);
        }
        if (answer) {
            return answer;
        }
    }
    return std::nullopt;
}

} // namespace corvane::linux
