#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "ui/ConfigWindow.h"

namespace corvane {

void AppDelegate::selectZone() {
    if (appState_.status == ClickStatus::running) {
        stopRun();
    }
    const bool wasConfigVisible = configWindow_ && configWindow_->isVisible();
    if (configWindow_) {
        // It must not cover the screen that is being marked.
        configWindow_->orderOut();
    }
    platform_.mainQueue().post(
        weakly([wasConfigVisible](AppDelegate &self) { self.pickZone(wasConfigVisible); }));
}

void AppDelegate::pickZone(bool wasConfigVisible) {
    appState_.status = ClickStatus::pickingZone;
    statusBarController_.rebuildMenu();
    shared_.zonePickerService.pick(
        weakly([wasConfigVisible](AppDelegate &self, const std::optional<ZonePickResult> &result) {
            self.zonePicked(result);
            if (wasConfigVisible) {
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
