#include "EventLoop.h"
#include "FakePanel.h"
#include "SampleMenu.h"
#include "platform/linux/LinuxStatusBar.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <gmock/gmock.h>

#include <limits>
#include <memory>
#include <random>

namespace corvane::contract {

using namespace Qt::StringLiterals;

/// (isvu): what happened to a line of a menu, as EventGroup takes it.
struct MenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint time = 0;
};

QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &event) {
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.time;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &event) {
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.time;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as the toolkit wants it
}

} // namespace corvane::contract

Q_DECLARE_METATYPE(corvane::contract::MenuEvent)

namespace corvane::contract {

namespace {

/// A panel that calls the item's menu with whatever comes to its mind.
class ForeignCallsTest : public testing::TestWithParam<unsigned> {
  protected:
    ForeignCallsTest() {
        qDBusRegisterMetaType<MenuEvent>();
        qDBusRegisterMetaType<QList<MenuEvent>>();
        item_->setMenu(sampleMenu());
    }

    std::uint32_t chance(std::uint32_t end) {
        return std::uniform_int_distribution<std::uint32_t>(0, end - 1)(random_);
    }

    int anyNumber() {
        switch (chance(4)) {
        case 0:
            return std::numeric_limits<int>::min() + static_cast<int>(chance(2));
        case 1:
            return std::numeric_limits<int>::max() - static_cast<int>(chance(2));
        default:
            return static_cast<int>(chance(24)) - 2;
        }
    }

    QString anyText() {
        static const QStringList texts{u"clicked"_s,     u"hovered"_s, u"opened"_s,
                                       u"label"_s,       u""_s,        u"children-display"_s,
                                       u"\U0001F5B1\n"_s};
        return chance(20) == 0 ? QString(10000, u'x')
                               : texts.at(chance(static_cast<std::uint32_t>(texts.size())));
    }

    template <typename Make>
    auto anyMany(Make make) {
        QList<decltype(make())> list;
        for (std::uint32_t count = chance(6) == 0 ? chance(300) : chance(4); count > 0; --count) {
            list << make();
        }
        return list;
    }

    QVariant anyNumbers() {
        return QVariant::fromValue(anyMany([this] { return anyNumber(); }));
    }
    QVariant anyTexts() {
        return anyMany([this] { return anyText(); });
    }
    QVariant anyVariant() {
        return QVariant::fromValue(QDBusVariant(chance(2) == 0 ? anyTexts() : anyNumbers()));
    }
    QVariant anyEvents() {
        return QVariant::fromValue(anyMany([this] {
            return MenuEvent{.id = anyNumber(),
                             .name = anyText(),
                             .data = QDBusVariant(anyText()),
                             .time = static_cast<uint>(anyNumber())};
        }));
    }

    QVariant anything() {
        switch (chance(6)) {
        case 0:
            return anyNumber();
        case 1:
            return anyText();
        case 2:
            return anyNumbers();
        case 3:
            return anyTexts();
        case 4:
            return anyEvents();
        default:
            return anyVariant();
        }
    }

    /// Arguments of the right types for one of the methods.
    std::pair<QString, QVariantList> anyCall() {
        switch (chance(7)) {
        case 0:
            return {u"GetLayout"_s, {anyNumber(), anyNumber(), anyTexts()}};
        case 1:
            return {u"GetGroupProperties"_s, {anyNumbers(), anyTexts()}};
        case 2:
            return {u"GetProperty"_s, {anyNumber(), anyText()}};
        case 3:
            return {u"Event"_s,
                    {anyNumber(), anyText(), anyVariant(), static_cast<uint>(anyNumber())}};
        case 4:
            return {u"EventGroup"_s, {anyEvents()}};
        case 5:
            return {u"AboutToShow"_s, {anyNumber()}};
        default:
            return {u"AboutToShowGroup"_s, {anyNumbers()}};
        }
    }

    std::mt19937 random_{GetParam()};
    x11::XcbEvents events_{x11::XcbConnection::open().value(),
                           [] { ADD_FAILURE() << "the server is gone"; }};
    x11::LinuxStatusBar bar_{events_};
    std::vector<std::string> actions_;
    std::unique_ptr<platform::StatusItem> item_ =
        bar_.createItem([this](const MenuCommand &command) { actions_.push_back(command.action); });
};

TEST_P(ForeignCallsTest, ChooseOnlyWhatCanBeChosenAndChangeNothing) {
    FakePanel panel;
    ASSERT_TRUE(turnUntil([&panel] { return !panel.items().isEmpty(); }));
    const auto before = panel.layout();
    for (int round = 0; round < 300; ++round) {
        auto [method, arguments] = anyCall();
        if (chance(5) == 0) {
            arguments[chance(static_cast<std::uint32_t>(arguments.size()))] = anything();
        }
        panel.callMenu(method, arguments);
    }
    const auto after = panel.layout();
    ASSERT_EQ(after.children.size(), before.children.size());
    for (qsizetype line = 0; line < after.children.size(); ++line) {
        EXPECT_EQ(after.children[line].id, before.children[line].id);
        EXPECT_EQ(after.children[line].properties.value(u"label"_s),
                  before.children[line].properties.value(u"label"_s));
    }
    EXPECT_FALSE(actions_.empty());
    EXPECT_THAT(actions_,
                testing::Each(testing::AnyOf("stopClicking:", "setModeZone:", "loadProfile:",
                                             "saveAsProfile:", "showConfig:", "terminate:")));
    EXPECT_TRUE(panel.choose(panel.line(u"Stop"_s).id));
}

INSTANTIATE_TEST_SUITE_P(Seeds, ForeignCallsTest, testing::Values(1U, 2U, 3U, 4U));

} // namespace

} // namespace corvane::contract
