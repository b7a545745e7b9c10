#include "BackEnd.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "platform/StatusBar.h"

namespace corvane::contract {

namespace {

class StatusBarContract : public ContractTest {
  protected:
    std::unique_ptr<platform::StatusItem> create() {
        auto item = platform().statusBar().createItem([this](const auto &) { ++commands_; });
        EXPECT_NE(item, nullptr);
        return item;
    }

    static Menu menuWith(const std::string &title) {
        return {.items = {{.title = title, .action = ActionID::startClicking},
                          MenuItem::separator(),
                          {.title = "More",
                           .submenu = std::vector<MenuItem>{{.title = "Deeper", .isOn = true}}}}};
    }

    int commands_ = 0;
};

TEST_P(StatusBarContract, AnItemBearsEveryUseAndSendsNoCommandByItself) {
    const auto item = create();
    item->setMenu(menuWith("One"));
    item->setIcon({.image = {.name = "cursorarrow.click.2"}, .title = ""});
    item->setToolTip("Idle");
    item->setMenu(menuWith("Two_&_three"));
    item->setIcon({.image = {.name = "no.such.symbol"},
                   .title = "",
                   .dot = StatusDot{.frame = {14, 0, 6, 6},
                                    .cornerRadius = 3,
                                    .colour = {ColourName::systemGreen}}});
    item->setToolTip("");
    item->setMenu({});
    bool isLater = false;
    platform().mainQueue().post([&isLater] { isLater = true; });
    EXPECT_TRUE(backEnd().turnUntil([&isLater] { return isLater; }));
    EXPECT_EQ(commands_, 0);
}

TEST_P(StatusBarContract, AButtonHasAnArea) {
    const auto item = create();
    if (item->buttonSize()) {
        // A bar may lay a new item out later.
        EXPECT_TRUE(backEnd().turnUntil([&item] {
            const auto size = item->buttonSize();
            return size && size->width > 0 && size->height > 0;
        }));
    }
}

TEST_P(StatusBarContract, ItemsCanBeMadeAgain) {
    for (int turn = 0; turn < 3; ++turn) {
        const auto item = create();
        item->setMenu(menuWith("Again"));
    }
}

CORVANE_CONTRACT(StatusBarContract);

} // namespace

} // namespace corvane::contract
