#include "platform/linux/commands/BusCommands.h"

#include "EventLoop.h"
#include "platform/linux/commands/CommandAddress.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace corvane::contract {

namespace {

using linux::BusCommands;

/// A program that sends commands on the bus, from within the test's own event loop.
class BusCommandsTest : public testing::Test {
  protected:
    BusCommandsTest()
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                             QStringLiteral("bus-commands-test"))) {}
    ~BusCommandsTest() override { QDBusConnection::disconnectFromBus(bus_.name()); }

    /// Answers each request with its first word.
    std::unique_ptr<BusCommands> listen(uid_t user = geteuid()) {
        auto commands = std::make_unique<BusCommands>(
            std::vector{name_},
            [this](const CommandRequest &request, const CommandReply &reply) {
                requests_.push_back(request);
                reply({.result = CommandResult::refused,
                       .output = request.empty() ? "" : request.front(),
                       .error = "why"});
            },
            user);
        EXPECT_TRUE(turnUntil([this] { return owner().isValid(); }));
        return commands;
    }

    QDBusReply<QString> owner() {
        auto question = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
        question << QString::fromStdString(name_);
        return bus_.call(question);
    }

    QDBusMessage call(const QString &method, const QVariantList &arguments) {
        auto message = QDBusMessage::createMethodCall(
            QString::fromStdString(name_), QString::fromStdString(linux::commandBusPath()),
            QString::fromStdString(linux::commandBusInterface()), method);
        message.setArguments(arguments);
        QDBusPendingCall pending = bus_.asyncCall(message);
        EXPECT_TRUE(turnUntil([&pending] { return pending.isFinished(); }));
        return pending.reply();
    }

    QDBusMessage run(const QStringList &words) { return call(QStringLiteral("Run"), {words}); }

    const std::string name_ = linux::commandBusName() + ".contract";
    QDBusConnection bus_;
    std::vector<CommandRequest> requests_;
};

TEST_F(BusCommandsTest, AnswersARequest) {
    const auto commands = listen();
    const auto reply =
        run({QStringLiteral("profile"), QStringLiteral("load"), QString::fromUtf8("Zwei Wörter")});
    EXPECT_EQ(reply.arguments(),
              (QVariantList{1, QStringLiteral("profile"), QStringLiteral("why")}));
    EXPECT_EQ(requests_, (std::vector<CommandRequest>{{"profile", "load", "Zwei Wörter"}}));
}

TEST_F(BusCommandsTest, AnswersARequestWithoutWords) {
    const auto commands = listen();
    EXPECT_EQ(run({}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(requests_, std::vector<CommandRequest>{{}});
}

TEST_F(BusCommandsTest, AnswersManyInTheirOrder) {
    const auto commands = listen();
    std::vector<QDBusPendingCall> calls;
    for (int number = 0; number < 50; ++number) {
        auto message = QDBusMessage::createMethodCall(
            QString::fromStdString(name_), QString::fromStdString(linux::commandBusPath()),
            QString::fromStdString(linux::commandBusInterface()), QStringLiteral("Run"));
        message << QStringList{QString::number(number)};
        calls.push_back(bus_.asyncCall(message));
    }
    ASSERT_TRUE(turnUntil([&calls] { return calls.back().isFinished(); }));
    ASSERT_EQ(requests_.size(), 50U);
    for (std::size_t number = 0; number < 50; ++number) {
        EXPECT_EQ(requests_[number], CommandRequest{std::to_string(number)});
    }
}

TEST_F(BusCommandsTest, TurnsOtherUsersAway) {
    const auto commands = listen(geteuid() + 1);
    EXPECT_EQ(run({QStringLiteral("start")}).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.AccessDenied"));
    EXPECT_TRUE(requests_.empty());
}

TEST_F(BusCommandsTest, TurnsAwayWhatIsNoRequest) {
    const auto commands = listen();
    for (const QVariantList &arguments :
         {QVariantList{}, QVariantList{QStringLiteral("start")}, QVariantList{1},
          QVariantList{QStringList{QStringLiteral("start")}, 2}}) {
        EXPECT_EQ(call(QStringLiteral("Run"), arguments).type(), QDBusMessage::ErrorMessage);
    }
    EXPECT_EQ(call(QStringLiteral("Walk"), {QStringList{}}).type(), QDBusMessage::ErrorMessage);
    EXPECT_TRUE(requests_.empty());
}

TEST_F(BusCommandsTest, ALongRequestIsPassedOn) {
    const auto commands = listen();
    const std::string word(100'000, 'x');
    EXPECT_EQ(run({QString::fromStdString(word)}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(requests_, (std::vector<CommandRequest>{{word}}));
}

TEST_F(BusCommandsTest, WithoutItsNamesItIsNotFoundButStillAnswers) {
    CommandReply goodbye;
    BusCommands commands({name_}, [&goodbye](const CommandRequest &, const CommandReply &reply) {
        goodbye = reply;
    });
    ASSERT_TRUE(turnUntil([this] { return owner().isValid(); }));
    auto message = QDBusMessage::createMethodCall(
        QString::fromStdString(name_), QString::fromStdString(linux::commandBusPath()),
        QString::fromStdString(linux::commandBusInterface()), QStringLiteral("Run"));
    message << QStringList{QStringLiteral("quit")};
    QDBusPendingCall pending = bus_.asyncCall(message);
    ASSERT_TRUE(turnUntil([&goodbye] { return goodbye != nullptr; }));
    commands.releaseNames();
    goodbye({.output = "bye"});
    ASSERT_TRUE(turnUntil([&pending] { return pending.isFinished(); }));
    EXPECT_FALSE(owner().isValid());
    EXPECT_EQ(pending.reply().arguments().value(1), QStringLiteral("bye"));
}

TEST_F(BusCommandsTest, AnotherCorvaneTakesOverTheNameOfOneThatEnds) {
    auto first = listen();
    const auto second = listen();
    const QString before = owner().value();
    first.reset();
    ASSERT_TRUE(turnUntil([this, &before] {
        const auto now = owner();
        return now.isValid() && now.value() != before;
    }));
    EXPECT_EQ(run({QStringLiteral("status")}).type(), QDBusMessage::ReplyMessage);
}

} // namespace

} // namespace corvane::contract
