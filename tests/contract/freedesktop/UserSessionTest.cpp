#include "platform/freedesktop/presence/UserSession.h"

#include "WindowSystemTest.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <memory>
#include <utility>

namespace corvane::contract {

namespace {

using namespace Qt::StringLiterals;

const QString loginService = u"org.freedesktop.login1"_s;
const QString managerPath = u"/org/freedesktop/login1"_s;
const QString sessionPath = u"/org/freedesktop/login1/session/_37"_s;

/// Knows one session, that of whoever asks.
class FakeLoginManager : public QDBusVirtualObject {
  public:
    explicit FakeLoginManager(QDBusConnection bus) : bus_(std::move(bus)) {
        bus_.registerVirtualObject(managerPath, this);
        bus_.registerService(loginService);
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        if (!message.member().startsWith(u"GetSession"_s)) {
            return false;
        }
        ++questions;
        return connection.send(
            message.createReply(QVariant::fromValue(QDBusObjectPath(sessionPath))));
    }

    void say(const QString &path, const QString &interface, const QString &name,
             const QVariantList &arguments = {}) {
        auto signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(arguments);
        bus_.send(signal);
    }
    void saySession(const QString &name) { say(sessionPath, loginService + u".Session"_s, name); }
    void sayProperty(const QString &name, bool value) {
        say(sessionPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
            {loginService + u".Session"_s, QVariantMap{{name, value}}, QStringList()});
    }

    int questions = 0;

  private:
    QDBusConnection bus_;
};

class LinuxUserSessionTest : public WindowSystemTest {
  protected:
    LinuxUserSessionTest()
        : WindowSystemTest({.windowManager = desktop::WindowManager::none}),
          login_(connectTo(u"login"_s)),
          session_(events_, busAddress(), connectTo(u"system"_s),
                   [this](bool isAway) { departures_ += isAway ? 1 : 0; }) {
        EXPECT_TRUE(turnUntil([this] { return login_.questions > 0; }));
    }
    ~LinuxUserSessionTest() override {
        for (const QString &name : names_) {
            QDBusConnection::disconnectFromBus(name);
        }
    }

    const std::string &busAddress() const {
        return desktop_.environment().at("DBUS_SESSION_BUS_ADDRESS");
    }

    QDBusConnection connectTo(const QString &name) {
        names_ << name;
        return QDBusConnection::connectToBus(QString::fromStdString(busAddress()), name);
    }

    [[nodiscard]] bool awaitAway(bool isAway) {
        return turnUntil([&] { return session_.isAway() == isAway; });
    }

    static void saySaver(const QDBusConnection &bus, const QString &interface, bool isOn) {
        auto signal = QDBusMessage::createSignal(u"/ScreenSaver"_s, interface, u"ActiveChanged"_s);
        signal << isOn;
        bus.send(signal);
    }

    QStringList names_;
    int departures_ = 0;
    FakeLoginManager login_;
    freedesktop::UserSession session_;
};

TEST_F(LinuxUserSessionTest, NoticesEveryDesktopsLocker) {
    const QDBusConnection locker = connectTo(u"locker"_s);
    int expected = 0;
    for (const QString &interface :
         {u"org.freedesktop.ScreenSaver"_s, u"org.gnome.ScreenSaver"_s, u"org.mate.ScreenSaver"_s,
          u"org.cinnamon.ScreenSaver"_s, u"org.xfce.ScreenSaver"_s}) {
        saySaver(locker, interface, true);
        ASSERT_TRUE(awaitAway(true)) << interface.toStdString();
        EXPECT_EQ(departures_, ++expected);
        saySaver(locker, interface, false);
        ASSERT_TRUE(awaitAway(false)) << interface.toStdString();
    }
}

TEST_F(LinuxUserSessionTest, ALockerThatIsGoneLocksNothing) {
    saySaver(connectTo(u"locker"_s), u"org.freedesktop.ScreenSaver"_s, true);
    ASSERT_TRUE(awaitAway(true));
    QDBusConnection::disconnectFromBus(u"locker"_s);
    EXPECT_TRUE(awaitAway(false));
}

TEST_F(LinuxUserSessionTest, ALockerWhoseBusIsGoneLocksNothing) {
    saySaver(connectTo(u"locker"_s), u"org.freedesktop.ScreenSaver"_s, true);
    ASSERT_TRUE(awaitAway(true));
    desktop_.stopMessageBus();
    EXPECT_TRUE(awaitAway(false));
}

TEST_F(LinuxUserSessionTest, NoticesALockerOnTheNextBus) {
    desktop_.stopMessageBus();
    desktop_.startMessageBus();
    const QDBusConnection locker = connectTo(u"locker"_s);
    ASSERT_TRUE(turnUntil([&] {
        saySaver(locker, u"org.freedesktop.ScreenSaver"_s, true);
        return session_.isAway();
    }));
}

TEST_F(LinuxUserSessionTest, NoticesSleep) {
    login_.say(managerPath, loginService + u".Manager"_s, u"PrepareForSleep"_s, {true});
    ASSERT_TRUE(awaitAway(true));
    login_.say(managerPath, loginService + u".Manager"_s, u"PrepareForSleep"_s, {false});
    EXPECT_TRUE(awaitAway(false));
    EXPECT_EQ(departures_, 1);
}

TEST_F(LinuxUserSessionTest, NoticesLockAndUnlockOfItsSession) {
    // The session is known a moment after it was asked for.
    ASSERT_TRUE(turnUntil([this] {
        login_.saySession(u"Lock"_s);
        return session_.isAway();
    }));
    login_.saySession(u"Unlock"_s);
    ASSERT_TRUE(awaitAway(false));
    login_.sayProperty(u"LockedHint"_s, true);
    ASSERT_TRUE(awaitAway(true));
    login_.sayProperty(u"LockedHint"_s, false);
    EXPECT_TRUE(awaitAway(false));
}

TEST_F(LinuxUserSessionTest, NoticesAnotherUserTakingOver) {
    ASSERT_TRUE(turnUntil([this] {
        login_.sayProperty(u"Active"_s, false);
        return session_.isAway();
    }));
    login_.sayProperty(u"Active"_s, true);
    EXPECT_TRUE(awaitAway(false));
}

TEST_F(LinuxUserSessionTest, NoticesTheServersScreenSaver) {
    desktop_.run({"xset", "s", "activate"});
    ASSERT_TRUE(awaitAway(true));
    desktop_.run({"xset", "s", "reset"});
    EXPECT_TRUE(awaitAway(false));
}

TEST(LinuxUserSessionWithoutBusesTest, NobodyIsEverAway) {
    const QDBusConnection none(u"no such bus"_s);
    x11::XcbEvents events(x11::XcbConnection::open().value(), [] {});
    const freedesktop::UserSession session(events, "", none, [](bool) {});
    EXPECT_FALSE(session.isAway());
}

} // namespace

} // namespace corvane::contract
