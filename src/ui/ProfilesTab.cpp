#include "ui/ProfilesTab.h"

#include "platform/Alerts.h"
#include "support/Localised.h"
#include "support/WhiteSpace.h"
#include "ui/CardModifier.h"
#include "ui/ViewBuilding.h"

#include <utility>

namespace corvane {

namespace {

constexpr Font calloutFont{FontRole::callout};

View activeBadge() {
    constexpr Colour blue{ColourName::systemBlue};
    View badge = styledText(localised("Active"),
                            {.role = FontRole::caption2, .weight = FontWeight::semibold}, blue);
    badge.padding = Insets::symmetric(6, 2);
    badge.background =
        Background{.fill = Colour{blue.name, 0.15}, .shape = BackgroundShape::capsule};
    return badge;
}

View emptyCard() {
    View hint = styledText(localised("Save your current configuration as a profile to quickly "
                                     "switch between setups."),
                           calloutFont, HierarchicalStyle::tertiary);
    std::get<Text>(hint.content).lineAlignment = Alignment::center;
    View content = column(
        {symbolImage("person.crop.rectangle.stack", {.role = FontRole::system, .size = 32},
                     HierarchicalStyle::tertiary),
         styledText(localised("No profiles"), {FontRole::headline}, HierarchicalStyle::secondary),
         std::move(hint)},
        8, Alignment::center);
    content.fullWidth = Alignment::center;
    content.padding = Insets::symmetric(0, 24);
    return cardModifier(std::move(content));
}

Alert renameAlert(const Profile &profile) {
    return {.style = AlertStyle::warning,
            .messageText = localised("Rename Profile"),
            .informativeText = localised("Enter a new name:"),
            .buttons = {localised("Rename"), localised("Cancel")},
            .field = AlertField{.size = {260, 24}, .text = profile.name}};
}

} // namespace

ProfilesTab::ProfilesTab(std::vector<Profile> profiles, std::optional<Uuid> activeProfileID,
                         platform::Alerts &alerts, platform::Applications &applications)
    : profiles_(std::move(profiles)),
      activeProfileID_(activeProfileID),
      alerts_(alerts) {
    for (const Profile &profile : profiles_) {
        summaries_.push_back(profile.summary(applications));
    }
}

View ProfilesTab::body() {
    View tab =
        column({profiles_.empty() ? emptyCard() : listCard(), saveCard()}, 16, Alignment::center);
    tab.identity = "profiles";
    tab.padding = Insets::all(20);
    tab.width = settingsWindowWidth;
    return tab;
}

View ProfilesTab::listCard() {
    std::vector<View> rows = {heading(localised("Profiles"))};
    for (std::size_t index = 0; index < profiles_.size(); ++index) {
        rows.push_back(profileRow(index));
    }
    return cardModifier(column(std::move(rows), 10));
}

View ProfilesTab::profileRow(std::size_t index) {
    const Profile &profile = profiles_[index];
    View description = column(
        {profileTitle(profile),
         singleLine(styledText(summaries_[index], calloutFont, HierarchicalStyle::secondary))},
        2);
    description.fullWidth = Alignment::leading;
    View load = {.content = Button{.title = localised("Load"),
                                   .controlSize = ControlSize::small,
                                   .action = {weakly(this, [index](ProfilesTab &tab) {
                                       tab.onLoad(tab.profiles_[index]);
                                   })}}};
    View profileRow = row({std::move(description), std::move(load), profileMenu(index)}, 12);
    profileRow.identity = profile.id.text();
    profileRow.padding = Insets::all(12);
    profileRow.background = Background{.cornerRadius = 10};
    profileRow.accessibilityLabel = profile.name;
    return profileRow;
}

View ProfilesTab::profileTitle(const Profile &profile) const {
    std::vector<View> views = {
        singleLine({.content = Text{.text = profile.name},
                    .font = {.role = FontRole::body, .weight = FontWeight::medium}})};
    if (activeProfileID_ == profile.id) {
        views.push_back(activeBadge());
    }
    return row(std::move(views), 6);
}

View ProfilesTab::profileMenu(std::size_t index) {
    return {.content =
                MenuButton{.symbolName = "ellipsis.circle",
                           .items = {{.title = localised("Rename..."),
                                      .action = {weakly(this,
                                                        [index](ProfilesTab &tab) {
                                                            tab.askForName(tab.profiles_[index]);
                                                        })}},
                                     {},
                                     {.title = localised("Delete"),
                                      .isDestructive = true,
                                      .action = {weakly(this,
                                                        [index](ProfilesTab &tab) {
                                                            tab.onDelete(tab.profiles_[index].id);
                                                        })}}}},
            .accessibilityLabel = localised("More")};
}

View ProfilesTab::saveCard() {
    View field = {.content = TextField{.text = newProfileName_,
                                       .placeholder = localised("Profile name"),
                                       .changed = {weakly(this, &ProfilesTab::setNewProfileName)}},
                  .accessibilityLabel = localised("Profile name")};
    View save = {.content = Button{.title = localised("Save"),
                                   .style = ButtonStyle::borderedProminent,
                                   .isEnabled = !withoutWhiteSpace(newProfileName_).empty(),
                                   .action = {weakly(this, &ProfilesTab::saveCurrent)}}};
    return cardModifier(column(
        {heading(localised("Save current config")), row({std::move(field), std::move(save)})}, 8));
}

void ProfilesTab::askForName(const Profile &profile) {
    const AlertResponse response = alerts_.runModal(renameAlert(profile));
    const std::string name = withoutWhiteSpace(response.fieldText);
    if (response.isFirstButton() && !name.empty()) {
        onRename(profile.id, name);
    }
}

void ProfilesTab::setNewProfileName(const std::string &name) {
    newProfileName_ = name;
    onChange();
}

void ProfilesTab::saveCurrent() {
    const std::string name = withoutWhiteSpace(newProfileName_);
    if (!name.empty()) {
        onSaveCurrent(name);
    }
    setNewProfileName({});
}

} // namespace corvane
