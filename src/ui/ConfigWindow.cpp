#include "ui/ConfigWindow.h"

#include "platform/SettingsWindows.h"
#include "support/Localised.h"
#include "ui/SettingsTab.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace corvane {

namespace {

constexpr const char *firstTab = "general";

std::vector<ToolbarItem> toolbarItems() {
    return {{"general", localised("General"), {.name = "gearshape"}},
            {"profiles", localised("Profiles"), {.name = "person.crop.rectangle.stack"}},
            {"about", localised("About"), {.name = "info.circle"}}};
}

SettingsWindow description() {
    return {.title = localised("General"),
            .width = settingsWindowWidth,
            .toolbar = {
                .identifier = "ConfigToolbar", .items = toolbarItems(), .selectedItem = firstTab}};
}

} // namespace

ConfigWindow::ConfigWindow(platform::SettingsWindows &windows, TabMaker makeTab,
                           std::function<void(const std::string &)> toolbarTabSelected)
    : makeTab_(std::move(makeTab)),
      window_(windows.create(description(), std::move(toolbarTabSelected))) {
    showTab(firstTab);
}

ConfigWindow::~ConfigWindow() { retireTab(); }

bool ConfigWindow::isVisible() const { return window_->isVisible(); }

void ConfigWindow::center() { window_->center(); }

void ConfigWindow::makeKeyAndOrderFront() { window_->makeKeyAndOrderFront(); }

void ConfigWindow::orderOut() { window_->orderOut(); }

void ConfigWindow::setSelectedItemIdentifier(const std::string &identifier) {
    window_->setSelectedToolbarItem(identifier);
}

void ConfigWindow::showTab(const std::string &identifier) {
    const std::vector<ToolbarItem> items = toolbarItems();
    const auto item = std::ranges::find(items, identifier, &ToolbarItem::identifier);
    if (item == items.end()) {
        return;
    }
    retireTab();
    tab_ = makeTab_(identifier);
    tab_->onChange = {[this] { window_->updateContent(tab_->body()); }};
    window_->setContent(tab_->body());
    window_->setTitle(item->label);
}

/// A tab whose dialog is still open lives on, but has nothing to show itself in.
void ConfigWindow::retireTab() {
    if (tab_) {
        tab_->onChange = {};
    }
}

} // namespace corvane
