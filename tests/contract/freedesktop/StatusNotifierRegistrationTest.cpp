#include "platform/freedesktop/tray/StatusNotifierRegistration.h"

#include "EventLoop.h"
#include "FakePanel.h"
#include "platform/freedesktop/bus/SessionBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <gtest/gtest.h>

#include <chrono>
#include <utility>
#include <vector>

#include <signal.h>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

using desktop::FakePanel;
using freedesktop::RegistrationState;

/// An item on a bus connection of its own, and the states its registration has had.
class Item {
  public:
    explicit Item(const std::string &busAddress = freedesktop::sessionBusAddress())
        : bus_(busAddress, {}),
          registration_(bus_,
                        {.willRegister = [this] { ++announcements_; },
                         .changed = [this](RegistrationState state) { states_.push_back(state); }},
                        interval) {}
    Item(const Item &) = delete;
    Item &operator=(const Item &) = delete;

    QString client() const { return QString::fromStdString(bus_.name()); }
    int announcements() const { return announcements_; }
    const std::vector<RegistrationState> &states() const { return states_; }

    bool waitFor(RegistrationState state) const {
        return turnUntil([this, state] { return !states_.empty() && states_.back() == state; });
    }

    static constexpr std::chrono::milliseconds interval{50};

  private:
    freedesktop::BusConnection bus_;
    int announcements_ = 0;
    std::vector<RegistrationState> states_;
    freedesktop::StatusNotifierRegistration registration_;
};

TEST(StatusNotifierRegistrationTest, IsUnavailableWithoutABus) {
    const Item item("");
    EXPECT_TRUE(item.waitFor(RegistrationState::unavailable));
}

TEST(StatusNotifierRegistrationTest, IsUnavailableWithoutAWatcher) {
    const Item item;
    EXPECT_TRUE(item.waitFor(RegistrationState::unavailable));
}

TEST(StatusNotifierRegistrationTest, RegistersBeforeItReportsSo) {
    const FakePanel panel(FakePanel::Reply::yes);
    const Item item;
    ASSERT_TRUE(item.waitFor(RegistrationState::registered));
    EXPECT_GE(panel.registrations(), 1);
    EXPECT_EQ(item.announcements(), panel.registrations());
}

TEST(StatusNotifierRegistrationTest, FindsAPanelThatComesLater) {
    const Item item;
    ASSERT_TRUE(item.waitFor(RegistrationState::unavailable));
    const FakePanel panel(FakePanel::Reply::yes);
    EXPECT_TRUE(item.waitFor(RegistrationState::registered));
}

class StatusNotifierReplyTest
    : public testing::TestWithParam<std::pair<FakePanel::Reply, RegistrationState>> {};

TEST_P(StatusNotifierReplyTest, RetriesUntilThePanelShowsItems) {
    FakePanel panel(GetParam().first);
    const Item item;
    ASSERT_TRUE(item.waitFor(GetParam().second));
    const int before = panel.requests();
    ASSERT_TRUE(turnUntil([&] { return panel.requests() >= before + 3; }));
    EXPECT_EQ(panel.registrations(), 0);
    panel.setReply(FakePanel::Reply::yes);
    EXPECT_TRUE(item.waitFor(RegistrationState::registered));
}

INSTANTIATE_TEST_SUITE_P(
    Answers, StatusNotifierReplyTest,
    testing::Values(std::pair(FakePanel::Reply::none, RegistrationState::unresponsive),
                    std::pair(FakePanel::Reply::error, RegistrationState::unavailable),
                    std::pair(FakePanel::Reply::no, RegistrationState::unavailable)));

TEST(StatusNotifierRegistrationTest, RegistersAgainUntilThePanelTakesTheItem) {
    FakePanel panel(FakePanel::Reply::yes);
    panel.setTakesItems(false);
    const Item item;
    ASSERT_TRUE(item.waitFor(RegistrationState::unavailable));
    const int before = panel.registrations();
    ASSERT_TRUE(turnUntil([&] { return panel.registrations() >= before + 3; }));
    panel.setTakesItems(true);
    EXPECT_TRUE(item.waitFor(RegistrationState::registered));
}

/// A process that is stopped until the end of the object.
class StoppedProcess {
  public:
    explicit StoppedProcess(pid_t process) : process_(process) { kill(process_, SIGSTOP); }
    ~StoppedProcess() { kill(process_, SIGCONT); }
    StoppedProcess(const StoppedProcess &) = delete;
    StoppedProcess &operator=(const StoppedProcess &) = delete;

  private:
    const pid_t process_;
};

TEST(StatusNotifierRegistrationTest, TriesAgainWhenTheBusDidNotReply) {
    FakePanel old(FakePanel::Reply::yes);
    const Item item;
    ASSERT_TRUE(item.waitFor(RegistrationState::registered));
    old.resign();
    const FakePanel panel(FakePanel::Reply::yes);
    // The item has the signal of the change when the bus has replied to a later call.
    const uint bus =
        QDBusConnection::sessionBus().interface()->servicePid(u"org.freedesktop.DBus"_s);
    ASSERT_GT(bus, 1U);
    {
        const StoppedProcess stopped(static_cast<pid_t>(bus));
        ASSERT_TRUE(item.waitFor(RegistrationState::unresponsive));
    }
    EXPECT_TRUE(item.waitFor(RegistrationState::registered));
}

TEST(StatusNotifierRegistrationTest, StopsCallingAPanelThatShowsTheItem) {
    FakePanel panel(FakePanel::Reply::yes);
    const Item shown;
    ASSERT_TRUE(shown.waitFor(RegistrationState::registered));
    const Item other;
    panel.setReplyTo(other.client(), FakePanel::Reply::no);
    const int before = panel.requestsOf(shown.client());
    ASSERT_TRUE(turnUntil([&] { return panel.requestsOf(other.client()) >= 5; }));
    EXPECT_EQ(panel.requestsOf(shown.client()), before);
}

TEST(StatusNotifierRegistrationTest, IgnoresTheReplyOfAPanelThatHasGone) {
    FakePanel old(FakePanel::Reply::no);
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"next"_s);
    old.afterReply([&] {
        old.resign();
        bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
    });
    const Item item;
    // The new owner has no such object, so its error arrives after the reply of the old one.
    EXPECT_TRUE(turnUntil([&] { return !item.states().empty(); }));
    EXPECT_EQ(item.states().front(), RegistrationState::unresponsive);
    QDBusConnection::disconnectFromBus(bus.name());
}

} // namespace

} // namespace corvane::contract
