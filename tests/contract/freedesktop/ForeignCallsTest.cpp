#include "EventLoop.h"
#include "FakePanel.h"
#include "SampleMenu.h"
#include "platform/linux/StatusItem.h"
#include "support/ForeignMenuCalls.h"

#include <gmock/gmock.h>

#include <memory>
#include <random>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

/// A panel that calls the item's menu with whatever comes to its mind.
class ForeignCallsTest : public testing::TestWithParam<unsigned> {
  protected:
    ForeignCallsTest() {
        registerMenuEvents();
        item_->setMenu(sampleMenu());
    }

    std::mt19937 random_{GetParam()};
    ForeignMenuCalls calls_{[this](std::uint32_t end) {
        return std::uniform_int_distribution<std::uint32_t>(0, end - 1)(random_);
    }};
    x11::XcbEvents events_{x11::XcbConnection::open().value(),
                           [] { ADD_FAILURE() << "the server is gone"; }};
    linux::StatusBar bar_{events_};
    std::vector<ActionID> actions_;
    std::unique_ptr<platform::StatusItem> item_ =
        bar_.createItem([this](const MenuCommand &command) { actions_.push_back(command.action); });
};

TEST_P(ForeignCallsTest, ChooseOnlyWhatCanBeChosenAndChangeNothing) {
    desktop::FakePanel panel;
    ASSERT_TRUE(turnUntil([&panel] { return !panel.items().isEmpty(); }));
    const auto before = panel.menu();
    for (int round = 0; round < 300; ++round) {
        const auto call = calls_.next();
        panel.callMenu(call.method, call.arguments);
    }
    const auto after = panel.menu();
    ASSERT_EQ(after.children.size(), before.children.size());
    for (std::size_t line = 0; line < after.children.size(); ++line) {
        EXPECT_EQ(after.children[line].id, before.children[line].id);
        EXPECT_EQ(after.children[line].label(), before.children[line].label());
    }
    EXPECT_FALSE(actions_.empty());
    EXPECT_THAT(actions_, testing::Each(testing::AnyOf(
                              ActionID::stopClicking, ActionID::setModeZone, ActionID::loadProfile,
                              ActionID::saveAsProfile, ActionID::showConfig, ActionID::terminate)));
    EXPECT_TRUE(panel.choose(panel.line(u"Stop"_s).id));
}

INSTANTIATE_TEST_SUITE_P(Seeds, ForeignCallsTest, testing::Values(1U, 2U, 3U, 4U));

} // namespace

} // namespace corvane::contract
