#include "services/ZonePickerService.h"

#include "overlay/OverlayWindow.h"
#include "platform/Alerts.h"
#include "platform/Application.h"
#include "platform/OverlayWindows.h"
#include "platform/Screens.h"
#include "support/Localised.h"
#include "support/Log.h"
#include "support/NumberText.h"

namespace corvane {

namespace {

/// Anything narrower or lower counts as a click.
constexpr double smallestSide = 10;

} // namespace

ZonePickerService::ZonePickerService(platform::Screens &screens,
                                     platform::OverlayWindows &overlayWindows,
                                     platform::Alerts &alerts, platform::Applications &applications,
                                     platform::Application &application, WindowResolver resolver)
    : screens_(screens),
      overlays_(overlayWindows),
      alerts_(alerts),
      applications_(applications),
      application_(application),
      resolver_(resolver) {}

ZonePickerService::~ZonePickerService() = default;

void ZonePickerService::pick(Answer answer) {
    continuation_ = std::move(answer);
    openOverlays();
}

void ZonePickerService::openOverlays() {
    for (const platform::Screen &screen : screens_.screens()) {
        auto overlay = std::make_unique<OverlayWindow>(
            overlays_, screen.frame,
            OverlayCallbacks{
                .onMouseDown = weakly([](auto &self, Point point) { self.beginDrag(point); }),
                .onCancel = weakly([](auto &self) { self.cancel(); }),
                .onDrag = weakly([](auto &self, Point point) { self.updateDrag(point); }),
                .onMouseUp = weakly([](auto &self, Point point) { self.finish(point); })});
        overlay->makeKeyAndOrderFront();
        overlayWindows_.push_back(std::move(overlay));
    }
    application_.activateIgnoringOtherApps();
}

void ZonePickerService::beginDrag(Point point) {
    dragOrigin_ = point;
    for (const auto &overlay : overlayWindows_) {
        overlay->clearSelection();
    }
}

void ZonePickerService::updateDrag(Point point) {
    if (!dragOrigin_) {
        return;
    }
    for (const auto &overlay : overlayWindows_) {
        overlay->showSelection(Rectangle::spanning(*dragOrigin_, point));
    }
}

void ZonePickerService::finish(Point point) {
    const auto drawn =
        dragOrigin_ ? std::optional(Rectangle::spanning(*dragOrigin_, point)) : std::nullopt;
    if (!drawn || drawn->width < smallestSide || drawn->height < smallestSide) {
        cancel();
        return;
    }
    cleanUp();
    const auto screens = screens_.screens();
    if (screens.empty()) {
        answer(std::nullopt);
        return;
    }
    const Rectangle zone = flipped(*drawn, screens.front().frame.height);
    log("Zone selected: " + rectangleText(zone));
    answer(anchoredIfWanted(zone));
}

ZonePickResult ZonePickerService::anchoredIfWanted(const Rectangle &zone) {
    auto anchor = resolver_.detectWindow(zone);
    if (!anchor || !wantsAnchor(*anchor)) {
        return {.absoluteRect = zone};
    }
    log("Zone anchored to " + anchor->bundleID);
    return {.absoluteRect = zone, .windowAnchor = std::move(anchor)};
}

bool ZonePickerService::wantsAnchor(const WindowAnchor &anchor) {
    const Alert alert{
        .style = AlertStyle::informational,
        .messageText = localised("Anchor to window?"),
        .informativeText = localisedFormat(
            "Anchor zone to \"%@\" (%@)? The zone will follow the window when it moves.",
            {anchor.appName(applications_), anchor.windowTitle}),
        .buttons = {localised("Anchor"), localised("No, keep absolute")}};
    return alerts_.runModal(alert).isFirstButton();
}

void ZonePickerService::cancel() {
    log("Zone picker cancelled");
    answer(std::nullopt);
}

void ZonePickerService::cleanUp() {
    dragOrigin_.reset();
    for (const auto &overlay : overlayWindows_) {
        overlay->orderOut();
    }
    overlayWindows_.clear();
}

void ZonePickerService::answer(const std::optional<ZonePickResult> &result) {
    // A pick requested while the alert was up has opened overlays of its own.
    cleanUp();
    if (const Answer waiting = std::exchange(continuation_, nullptr)) {
        waiting(result);
    }
}

} // namespace corvane
