#include "platform/freedesktop/presence/UserSession.h"

#include "WindowSystemTest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <utility>
#include <vector>

namespace corvane::contract {

namespace {

using namespace Qt::StringLiterals;
using platform::SessionState;

const QString loginService = u"org.freedesktop.login1"_s;
const QString managerPath = u"/org/freedesktop/login1"_s;
const QString sessionPath = u"/org/freedesktop/login1/session/_37"_s;

/// Knows one session, which every caller belongs to.
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

class UserSessionTest : public WindowSystemTest {
  protected:
    UserSessionTest()
        : WindowSystemTest({.windowManager = desktop::WindowManager::none}),
          login_(connectTo(u"login"_s)),
          session_(busAddress(), busAddress()) {
        session_.whenChanged([this] { reported_.push_back(session_.state()); });
        EXPECT_TRUE(turnUntil([this] { return login_.questions > 0; }));
    }
    ~UserSessionTest() override {
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

    [[nodiscard]] bool await(SessionState state) {
        return turnUntil([&] { return session_.state() == state; });
    }

    static void announceSaver(const QDBusConnection &bus, const QString &interface, bool isOn) {
        auto signal = QDBusMessage::createSignal(u"/ScreenSaver"_s, interface, u"ActiveChanged"_s);
        signal << isOn;
        bus.send(signal);
    }

    /// Locks and unlocks by a way in that is known to work: what was sent before has arrived then.
    [[nodiscard]] bool lockAndUnlock(const QDBusConnection &locker) {
        announceSaver(locker, u"org.freedesktop.ScreenSaver"_s, true);
        const bool wasLocked = await(SessionState::locked);
        announceSaver(locker, u"org.freedesktop.ScreenSaver"_s, false);
        return wasLocked && await(SessionState::active);
    }

    QStringList names_;
    std::vector<SessionState> reported_;
    FakeLoginManager login_;
    freedesktop::UserSession session_;
};

TEST_F(UserSessionTest, NoticesEveryLockerThatLocksWithItsSaver) {
    const QDBusConnection locker = connectTo(u"locker"_s);
    std::vector<SessionState> expected;
    for (const QString &interface : {u"org.freedesktop.ScreenSaver"_s, u"org.mate.ScreenSaver"_s,
                                     u"org.cinnamon.ScreenSaver"_s, u"org.xfce.ScreenSaver"_s}) {
        announceSaver(locker, interface, true);
        ASSERT_TRUE(await(SessionState::locked)) << interface.toStdString();
        announceSaver(locker, interface, false);
        ASSERT_TRUE(await(SessionState::active)) << interface.toStdString();
        expected.insert(expected.end(), {SessionState::locked, SessionState::active});
    }
    EXPECT_EQ(reported_, expected);
}

TEST_F(UserSessionTest, AScreenSaverWithoutALockLeavesItActive) {
    const QDBusConnection shell = connectTo(u"shell"_s);
    announceSaver(shell, u"org.gnome.ScreenSaver"_s, true);
    ASSERT_TRUE(lockAndUnlock(shell));
    EXPECT_EQ(reported_, (std::vector{SessionState::locked, SessionState::active}));
}

TEST_F(UserSessionTest, SleepLeavesItActive) {
    // The next signal of the login manager that counts comes behind this one.
    ASSERT_TRUE(turnUntil([this] {
        login_.say(managerPath, loginService + u".Manager"_s, u"PrepareForSleep"_s, {true});
        login_.sayProperty(u"Active"_s, false);
        return session_.state() == SessionState::otherUser;
    }));
    EXPECT_EQ(reported_, std::vector{SessionState::otherUser});
}

TEST_F(UserSessionTest, ALockerThatIsGoneLocksNothing) {
    announceSaver(connectTo(u"locker"_s), u"org.freedesktop.ScreenSaver"_s, true);
    ASSERT_TRUE(await(SessionState::locked));
    QDBusConnection::disconnectFromBus(u"locker"_s);
    EXPECT_TRUE(await(SessionState::active));
}

TEST_F(UserSessionTest, ALockerWhoseBusIsGoneLocksNothing) {
    announceSaver(connectTo(u"locker"_s), u"org.freedesktop.ScreenSaver"_s, true);
    ASSERT_TRUE(await(SessionState::locked));
    desktop_.stopMessageBus();
    EXPECT_TRUE(await(SessionState::active));
}

TEST_F(UserSessionTest, NoticesALockerOnTheNextBus) {
    desktop_.stopMessageBus();
    desktop_.startMessageBus();
    const QDBusConnection locker = connectTo(u"locker"_s);
    ASSERT_TRUE(turnUntil([&] {
        announceSaver(locker, u"org.freedesktop.ScreenSaver"_s, true);
        return session_.state() == SessionState::locked;
    }));
}

TEST_F(UserSessionTest, NoticesLockAndUnlockOfItsSession) {
    // The session is known a moment after it was asked for.
    ASSERT_TRUE(turnUntil([this] {
        login_.saySession(u"Lock"_s);
        return session_.state() == SessionState::locked;
    }));
    login_.saySession(u"Unlock"_s);
    ASSERT_TRUE(await(SessionState::active));
    login_.sayProperty(u"LockedHint"_s, true);
    ASSERT_TRUE(await(SessionState::locked));
    login_.sayProperty(u"LockedHint"_s, false);
    EXPECT_TRUE(await(SessionState::active));
}

TEST_F(UserSessionTest, NoticesAnotherUserTakingOver) {
    ASSERT_TRUE(turnUntil([this] {
        login_.sayProperty(u"Active"_s, false);
        return session_.state() == SessionState::otherUser;
    }));
    // The session left behind may be locked too, and stays so when its user is back.
    login_.sayProperty(u"LockedHint"_s, true);
    login_.sayProperty(u"Active"_s, true);
    ASSERT_TRUE(await(SessionState::locked));
    login_.sayProperty(u"LockedHint"_s, false);
    EXPECT_TRUE(await(SessionState::active));
}

TEST(UserSessionWithoutBusesTest, IsActive) {
    const freedesktop::UserSession session("", "");
    EXPECT_EQ(session.state(), SessionState::active);
}

} // namespace

} // namespace corvane::contract
