#include "platform/freedesktop/tray/StatusNotifierRegistration.h"

#include "EventLoop.h"
#include "ScriptedPanel.h"

#include <QDBusConnection>
#include <gtest/gtest.h>

#include <chrono>
#include <utility>
#include <vector>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

using freedesktop::PanelAnswer;

/// A client of the bus of its own that wants its item on the panel, and what it was told.
class Host {
  public:
    explicit Host(QDBusConnection bus)
        : bus_(std::move(bus)),
          host_(bus_,
                {.willRegister = [this] { ++announcements_; },
                 .answered = [this](PanelAnswer answer) { answers_.push_back(answer); }},
                pace) {}
    explicit Host(const QString &name)
        : Host(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)) {}
    ~Host() { QDBusConnection::disconnectFromBus(bus_.name()); }
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;

    QString client() const { return bus_.baseService(); }
    int announcements() const { return announcements_; }
    const std::vector<PanelAnswer> &answers() const { return answers_; }

    bool isTold(PanelAnswer answer) const {
        return turnUntil([this, answer] { return !answers_.empty() && answers_.back() == answer; });
    }

    static constexpr std::chrono::milliseconds pace{50};

  private:
    QDBusConnection bus_;
    int announcements_ = 0;
    std::vector<PanelAnswer> answers_;
    freedesktop::StatusNotifierRegistration host_;
};

TEST(StatusNotifierHostTest, SaysThatThereIsNoPanelWithoutABus) {
    const Host host(QDBusConnection(u"no such connection"_s));
    EXPECT_TRUE(host.isTold(PanelAnswer::none));
}

TEST(StatusNotifierHostTest, SaysThatThereIsNoPanelWhereNobodyHasTheName) {
    const Host host(u"one"_s);
    EXPECT_TRUE(host.isTold(PanelAnswer::none));
}

TEST(StatusNotifierHostTest, RegistersBeforeItSaysSo) {
    const ScriptedPanel panel(ScriptedPanel::Answer::yes);
    const Host host(u"one"_s);
    ASSERT_TRUE(host.isTold(PanelAnswer::shown));
    EXPECT_GE(panel.registrations(), 1);
    EXPECT_EQ(host.announcements(), panel.registrations());
}

TEST(StatusNotifierHostTest, FindsAPanelThatComesLater) {
    const Host host(u"one"_s);
    ASSERT_TRUE(host.isTold(PanelAnswer::none));
    const ScriptedPanel panel(ScriptedPanel::Answer::yes);
    EXPECT_TRUE(host.isTold(PanelAnswer::shown));
}

class StatusNotifierHostAnswerTest
    : public testing::TestWithParam<std::pair<ScriptedPanel::Answer, PanelAnswer>> {};

TEST_P(StatusNotifierHostAnswerTest, AsksAgainUntilThePanelShowsItems) {
    ScriptedPanel panel(GetParam().first);
    const Host host(u"one"_s);
    ASSERT_TRUE(host.isTold(GetParam().second));
    const int before = panel.questions();
    ASSERT_TRUE(turnUntil([&] { return panel.questions() >= before + 3; }));
    EXPECT_EQ(panel.registrations(), 0);
    panel.setAnswer(ScriptedPanel::Answer::yes);
    EXPECT_TRUE(host.isTold(PanelAnswer::shown));
}

INSTANTIATE_TEST_SUITE_P(Answers, StatusNotifierHostAnswerTest,
                         testing::Values(std::pair(ScriptedPanel::Answer::nothing,
                                                   PanelAnswer::silent),
                                         std::pair(ScriptedPanel::Answer::error, PanelAnswer::none),
                                         std::pair(ScriptedPanel::Answer::no, PanelAnswer::none)));

TEST(StatusNotifierHostTest, RegistersAgainUntilThePanelTakesTheItem) {
    ScriptedPanel panel(ScriptedPanel::Answer::yes);
    panel.setTakesItems(false);
    const Host host(u"one"_s);
    ASSERT_TRUE(host.isTold(PanelAnswer::none));
    const int before = panel.registrations();
    ASSERT_TRUE(turnUntil([&] { return panel.registrations() >= before + 3; }));
    panel.setTakesItems(true);
    EXPECT_TRUE(host.isTold(PanelAnswer::shown));
}

TEST(StatusNotifierHostTest, LeavesThePanelAloneThatShowsTheItem) {
    ScriptedPanel panel(ScriptedPanel::Answer::yes);
    const Host shown(u"one"_s);
    ASSERT_TRUE(shown.isTold(PanelAnswer::shown));
    const Host other(u"other"_s);
    panel.setAnswerFor(other.client(), ScriptedPanel::Answer::no);
    const int before = panel.questionsOf(shown.client());
    ASSERT_TRUE(turnUntil([&] { return panel.questionsOf(other.client()) >= 5; }));
    EXPECT_EQ(panel.questionsOf(shown.client()), before);
}

TEST(StatusNotifierHostTest, DoesNotTakeAnOldPanelsAnswerForTheNewOnes) {
    ScriptedPanel old(ScriptedPanel::Answer::no);
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"next"_s);
    old.setAnswered([&] {
        old.resign();
        bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
    });
    const Host host(u"one"_s);
    // The new one has no such object and says so in the end; what the old one said came first.
    EXPECT_TRUE(turnUntil([&] { return !host.answers().empty(); }));
    EXPECT_EQ(host.answers().front(), PanelAnswer::silent);
    QDBusConnection::disconnectFromBus(bus.name());
}

} // namespace

} // namespace corvane::contract
