#include "ui/GeneralTab.h"

#include "platform/Alerts.h"
#include "platform/LoginItem.h"
#include "support/Localised.h"
#include "support/NumberText.h"
#include "ui/CardModifier.h"
#include "ui/ViewBuilding.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

namespace {

constexpr Font calloutFont{FontRole::callout};

std::string zoneText(const CodableRect &zone) {
    return localisedFormat("Zone: %@, %@ — %@×%@",
                           {truncatedNumberText(zone.x), truncatedNumberText(zone.y),
                            truncatedNumberText(zone.width), truncatedNumberText(zone.height)});
}

std::string intervalText(const CorvaneConfig &config) {
    return localisedFormat("= 1 click every %@s", {fixedNumberText(config.clickInterval(), 2)});
}

std::string unitName(TimeUnit unit) {
    switch (unit) {
    case TimeUnit::seconds:
        return localised("second");
    case TimeUnit::minutes:
        return localised("minute");
    case TimeUnit::hours:
        return localised("hour");
    }
    return {};
}

template <typename Cases, typename Value>
std::size_t indexOf(const Cases &cases, Value value) {
    return static_cast<std::size_t>(std::distance(cases.begin(), std::ranges::find(cases, value)));
}

template <typename Cases, typename Name>
std::vector<std::string> names(const Cases &cases, Name name) {
    std::vector<std::string> result;
    std::ranges::transform(cases, std::back_inserter(result), name);
    return result;
}

View derivedText(std::string text, ShapeStyle style) {
    View view = styledText(std::move(text), calloutFont, style);
    view.fullWidth = Alignment::trailing;
    return view;
}

Alert noWindowAlert() {
    return {.style = AlertStyle::warning,
            .messageText = localised("No window found"),
            .informativeText =
                localised("No window was detected under the current zone. Make sure the target "
                          "window is visible behind the zone area."),
            .buttons = {localised("OK")}};
}

} // namespace

GeneralTab::GeneralTab(CorvaneConfig config, platform::LoginItem &loginItem,
                       platform::Alerts &alerts, platform::Applications &applications,
                       const WindowResolver &windowResolver)
    : config_(std::move(config)),
      startAtLogin_(loginItem.isEnabled()),
      loginItem_(loginItem),
      alerts_(alerts),
      applications_(applications),
      windowResolver_(windowResolver) {}

View GeneralTab::body() {
    View tab = column(
        {modeCard(), row({rateCard(), limitCard()}, 12, Alignment::top), loginToggle(), okButton()},
        12, Alignment::center);
    tab.identity = "general";
    tab.padding = Insets::all(20);
    tab.width = settingsWindowWidth;
    return tab;
}

View GeneralTab::modeCard() {
    std::vector<View> rows = {
        heading(localised("Mode")),
        {.content = Picker{.style = PickerStyle::radioGroup,
                           .options = names(allClickModes, displayName),
                           .selected = indexOf(allClickModes, config_.clickMode),
                           .changed = {weakly(this, &GeneralTab::setClickMode)}},
         .accessibilityLabel = localised("Mode")}};
    if (config_.clickMode == ClickMode::zone) {
        rows.insert(rows.end(),
                    {{.content = Divider{}}, zoneRow(), {.content = Divider{}}, anchorToggle()});
        if (config_.windowAnchor) {
            rows.push_back(anchorLine(*config_.windowAnchor));
        }
    }
    return cardModifier(column(std::move(rows), 10));
}

View GeneralTab::zoneRow() {
    const View description =
        config_.zoneRect
            ? styledText(zoneText(*config_.zoneRect),
                         {.role = FontRole::callout, .isMonospaced = true},
                         HierarchicalStyle::secondary)
            : styledText(localised("No zone defined"), calloutFont, HierarchicalStyle::secondary);
    return row({description,
                {.content = Button{
                     .title = localised("Define zone..."),
                     .symbol = Symbol{.name = "rectangle.dashed"},
                     .controlSize = ControlSize::small,
                     .action = {weakly(this, [](GeneralTab &tab) { tab.onSelectZone(); })}}}});
}

View GeneralTab::anchorToggle() {
    return {.content = Toggle{.title = localised("Relative to a window"),
                              .symbol = Symbol{.name = "macwindow"},
                              .isOn = config_.windowAnchor.has_value(),
                              .changed = {weakly(this, &GeneralTab::setAnchored)}}};
}

View GeneralTab::anchorLine(const WindowAnchor &anchor) const {
    return row(
        {symbolImage("link", calloutFont, Colour{ColourName::systemBlue}),
         singleLine(styledText(localisedFormat("Anchored to %@", {anchor.appName(applications_)}),
                               calloutFont, HierarchicalStyle::secondary)),
         singleLine(styledText("(" + anchor.windowTitle + ")", calloutFont,
                               HierarchicalStyle::tertiary))});
}

View GeneralTab::rateCard() {
    const Handler<std::int64_t> changed{weakly(this, &GeneralTab::setClickRate)};
    const std::string label = localised("Rate");
    View controls = row(
        {{.content = NumberField{.value = config_.clickRate, .changed = changed},
          .width = 52,
          .accessibilityLabel = label},
         {.content =
              Stepper{.value = config_.clickRate, .lowest = 1, .highest = 9999, .changed = changed},
          .accessibilityLabel = label},
         styledText(localised("clicks per"), {}, HierarchicalStyle::secondary),
         {.content = Picker{.options = names(allTimeUnits, unitName),
                            .selected = indexOf(allTimeUnits, config_.timeUnit),
                            .changed = {weakly(this, &GeneralTab::setTimeUnit)}},
          .accessibilityLabel = localised("clicks per")}});
    return cardModifier(column({heading(label), std::move(controls),
                                derivedText(intervalText(config_), HierarchicalStyle::tertiary)},
                               10));
}

View GeneralTab::limitCard() {
    const Handler<std::int64_t> changed{weakly(this, &GeneralTab::setMaxClicks)};
    const std::string label = localised("Limit");
    std::vector<View> rows = {
        heading(label),
        row({{.content = NumberField{.value = config_.maxClicks, .changed = changed},
              .width = 56,
              .accessibilityLabel = label},
             {.content = Stepper{.value = config_.maxClicks,
                                 .lowest = 0,
                                 .highest = 999999,
                                 .changed = changed},
              .accessibilityLabel = label},
             styledText(localised("clicks"), {}, HierarchicalStyle::secondary)})};
    if (config_.maxClicks == 0) {
        rows.push_back(derivedText(localised("(unlimited)"), Colour{ColourName::systemOrange}));
    }
    return cardModifier(column(std::move(rows), 10));
}

View GeneralTab::loginToggle() {
    return {.content = Toggle{.title = localised("Start at Login"),
                              .isOn = startAtLogin_,
                              .changed = {weakly(this, &GeneralTab::setStartAtLogin)}}};
}

View GeneralTab::okButton() {
    return row({{.content = Button{
                     .title = localised("OK"),
                     .style = ButtonStyle::borderedProminent,
                     .isDefaultAction = true,
                     .action = {weakly(this, [](GeneralTab &tab) { tab.onSave(tab.config_); })}}}});
}

void GeneralTab::setClickMode(std::size_t index) {
    config_.clickMode = allClickModes.at(index);
    onChange();
}

void GeneralTab::setClickRate(std::int64_t rate) {
    config_.clickRate = rate;
    onChange();
}

void GeneralTab::setTimeUnit(std::size_t index) {
    config_.timeUnit = allTimeUnits.at(index);
    onChange();
}

void GeneralTab::setMaxClicks(std::int64_t limit) {
    config_.maxClicks = limit;
    onChange();
}

void GeneralTab::setAnchored(bool isAnchored) {
    if (isAnchored) {
        anchorToWindow();
    } else {
        removeAnchor();
    }
}

void GeneralTab::anchorToWindow() {
    if (!config_.zoneRect) {
        return;
    }
    const auto anchor = windowResolver_.detectWindow(config_.zoneRect->rectangle());
    if (!anchor) {
        alerts_.runModal(noWindowAlert());
        return;
    }
    config_.windowAnchor = anchor;
    onChange();
}

void GeneralTab::removeAnchor() {
    config_.windowAnchor.reset();
    onChange();
    onRemoveAnchor();
}

void GeneralTab::setStartAtLogin(bool isOn) {
    startAtLogin_ = isOn;
    const Outcome<> done = isOn ? loginItem_.registerItem() : loginItem_.unregisterItem();
    if (!done) {
        startAtLogin_ = !isOn;
    }
    onChange();
}

} // namespace corvane
