#include "ui/AboutTab.h"

#include "platform/Application.h"
#include "platform/Workspace.h"
#include "support/Localised.h"
#include "ui/Product.h"
#include "ui/ViewBuilding.h"

#include <utility>
#include <vector>

namespace corvane {

namespace {

constexpr Font calloutFont{FontRole::callout};

std::string versionLabel(const platform::Application &application) {
    return application.shortVersion().value_or("1.0") + " (" +
           application.buildVersion().value_or("1") + ")";
}

View icon(const std::filesystem::path &file) {
    return {.content = FileImage{.file = file, .size = {96, 96}, .cornerRadius = 22}};
}

View linkText(std::string text) {
    return {.content = Text{.text = std::move(text)}, .font = calloutFont};
}

} // namespace

AboutTab::AboutTab(const platform::Application &application, platform::Workspace &workspace)
    : appVersion_(versionLabel(application)),
      iconFile_(application.iconFile()),
      workspace_(workspace) {}

View AboutTab::body() {
    std::vector<View> views;
    if (iconFile_) {
        views.push_back(icon(*iconFile_));
    }
    views.push_back({.content = Text{.text = "Corvane"},
                     .font = {.role = FontRole::title, .weight = FontWeight::bold}});
    views.push_back(styledText(localisedFormat("Version %@", {appVersion_}), calloutFont,
                               HierarchicalStyle::secondary));
    views.push_back(styledText(localised("A simple auto-clicker for macOS."), {},
                               HierarchicalStyle::secondary));
    views.push_back(webPageLink());
    views.push_back(donationLink());
    views.push_back(creditLink());

    View page = column(std::move(views), 16, Alignment::center);
    page.width = settingsWindowWidth;
    page.minHeight = 300;
    View tab = column({std::move(page)}, 0, Alignment::center);
    tab.identity = "about";
    tab.padding = Insets::symmetric(0, 24);
    return tab;
}

View AboutTab::link(const std::string &address, bool isPlain, View label) {
    return {.content = Link{.address = address,
                            .isPlain = isPlain,
                            .label = {std::move(label)},
                            .action = {weakly(this, [address](AboutTab &tab) {
                                tab.workspace_.openUrl(address);
                            })}}};
}

View AboutTab::webPageLink() {
    View globe = {.content = SymbolImage{.name = "globe"}, .font = calloutFont};
    return link(product::webPage, false, row({std::move(globe), linkText(product::hostName)}));
}

View AboutTab::donationLink() {
    View label = row({symbolImage("heart.fill", calloutFont, Colour{ColourName::systemPink}),
                      linkText(localised("Support this app"))});
    label.padding = Insets::symmetric(16, 8);
    label.background = Background{.cornerRadius = 8};
    return link(product::donationPage, true, std::move(label));
}

View AboutTab::creditLink() {
    return link(product::makerPage, true, {.content = Text{.text = localised(product::credit)}});
}

} // namespace corvane
