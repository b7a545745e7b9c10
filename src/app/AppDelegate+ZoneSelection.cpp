#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "ui/ConfigWindow.h"

#include <utility>

namespace corvane {

void AppDelegate::selectZone() {
    if (appState_.status == ClickStatus::running) {
        stopRun();
    }
    if (configWindow_) {
        // It must not cover the screen that is being marked. A pick that takes the place of an open
        // one remembers for both that the window was there.
        isConfigHiddenForPick_ = isConfigHiddenForPick_ || configWindow_->isVisible();
        configWindow_->orderOut();
    }
    platform_.mainQueue().post(weakly([](AppDelegate &self) { self.pickZone(); }));
}

void AppDelegate::pickZone() {
    appState_.status = ClickStatus::pickingZone;
    statusBarController_.rebuildMenu();
    shared_.zonePickerService.pick(
        weakly([](AppDelegate &self, const std::optional<ZonePickResult> &result) {
            self.zonePicked(result);
            if (std::exchange(self.isConfigHiddenForPick_, false)) {
                self.reopenConfig();
            }
        }));
}

void AppDelegate::zonePicked(const std::optional<ZonePickResult> &result) {
    if (result) {
        appState_.config.zoneRect = CodableRect::of(result->absoluteRect);
        appState_.config.windowAnchor = result->windowAnchor;
        appState_.config.clickMode = ClickMode::zone;
        appState_.saveConfig();
    }
    // The hot key may have started a run over the open picker: that goes on.
    if (appState_.status == ClickStatus::pickingZone) {
        appState_.status = ClickStatus::idle;
    }
    statusBarController_.rebuildMenu();
}

} // namespace corvane
