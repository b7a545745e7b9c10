#include "BackEnd.h"
#include "platform/Platform.h"
#include "platform/SettingsWindows.h"

#include <string>
#include <vector>

namespace corvane::contract {

namespace {

class SettingsWindowsContract : public ContractTest {
  protected:
    std::unique_ptr<platform::NativeSettingsWindow> create() {
        const SettingsWindow window{
            .title = "Contract",
            .width = 420,
            .toolbar = {.identifier = "Contract",
                        .items = {{.identifier = "one", .label = "One", .image = {.name = "gear"}},
                                  {.identifier = "two", .label = "Two", .image = {.name = "no"}}},
                        .selectedItem = "one"}};
        auto made = platform().settingsWindows().create(
            window, [this](const std::string &identifier) { selected_.push_back(identifier); });
        EXPECT_NE(made, nullptr);
        return made;
    }

    std::vector<std::string> selected_;
};

TEST_P(SettingsWindowsContract, IsOffScreenUntilShown) {
    const auto window = create();
    EXPECT_FALSE(window->isVisible());
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(window->isVisible());
    window->orderOut();
    EXPECT_FALSE(window->isVisible());
}

TEST_P(SettingsWindowsContract, ReportsNoSelectionItWasTold) {
    const auto window = create();
    window->makeKeyAndOrderFront();
    window->setSelectedToolbarItem("two");
    window->setSelectedToolbarItem("nowhere");
    window->setSelectedToolbarItem("one");
    EXPECT_TRUE(selected_.empty());
}

TEST_P(SettingsWindowsContract, TakesContentOnAndOffTheScreen) {
    const auto window = create();
    window->setContent(View{Text{.text = "One"}});
    window->center();
    window->setTitle("Renamed");
    window->makeKeyAndOrderFront();
    window->updateContent(View{Text{.text = "Two"}});
    window->updateContent(View{Button{.title = "Another kind"}});
    window->setContent(View{Text{.text = "Three"}});
    EXPECT_TRUE(window->isVisible());
}

CORVANE_CONTRACT(SettingsWindowsContract);

} // namespace

} // namespace corvane::contract
