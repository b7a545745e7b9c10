#include "app/ZoneSelection.h"

#include "app/RunController.h"
#include "app/SettingsController.h"
#include "app/SharedServices.h"
#include "platform/MainQueue.h"
#include "state/Availability.h"
#include "support/Log.h"

#include <utility>

namespace corvane {

ZoneSelection::ZoneSelection(platform::MainQueue &mainQueue, SharedServices &shared,
                             RunController &runs, SettingsController &settings,
                             std::function<void()> refresh)
    : mainQueue_(mainQueue),
      shared_(shared),
      runs_(runs),
      settings_(settings),
      refresh_(std::move(refresh)) {}

void ZoneSelection::select() {
    if (shared_.appState.isAlertOpen) {
        log("Cannot select a zone: " + reasonFor(Obstacle::alertOpen));
        return;
    }
    if (shared_.appState.status == ClickStatus::running) {
        runs_.stopRun();
    }
    // The window must not cover the screen that is being marked. A pick that takes the place of an
    // open one remembers for both that the window was there.
    areSettingsHidden_ = areSettingsHidden_ || settings_.isVisible();
    settings_.hide();
    mainQueue_.post(weakly_(&ZoneSelection::pick));
}

void ZoneSelection::pick() {
    shared_.appState.status = ClickStatus::pickingZone;
    refresh_();
    shared_.zonePickerService.pick(
        weakly_([](ZoneSelection &self, const std::optional<ZonePickResult> &result) {
            self.picked(result);
            if (std::exchange(self.areSettingsHidden_, false)) {
                self.settings_.reopen();
            }
        }));
}

void ZoneSelection::picked(const std::optional<ZonePickResult> &result) {
    AppState &state = shared_.appState;
    if (result) {
        state.config.zoneRect = CodableRect::of(result->absoluteRect);
        state.config.windowAnchor = result->windowAnchor;
        state.config.clickMode = ClickMode::zone;
        state.saveConfig();
    }
    // The hot key may have started a run over the open picker: that goes on.
    if (state.status == ClickStatus::pickingZone) {
        state.status = ClickStatus::idle;
    }
    refresh_();
}

} // namespace corvane
