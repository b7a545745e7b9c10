#pragma once

#include "services/ClickerService.h"
#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "services/WindowResolver.h"
#include "services/ZonePickerService.h"
#include "state/AlertGate.h"
#include "state/AppState.h"
#include "support/SerialQueue.h"

namespace corvane {

namespace platform {
class Platform;
}

/// The one instance of each service in the program, kept for its life. Destroying it ends every run
/// and finishes every save.
struct SharedServices {
    explicit SharedServices(platform::Platform &platform);

    ConfigService configService;
    ProfileService profileService;
    /// Does the stores' file work; goes before they do, when all of it is finished.
    SerialQueue storeQueue;
    AppState appState;
    /// What every alert goes through.
    AlertGate alerts;
    ClickerService clickerService;
    WindowResolver windowResolver;
    ZonePickerService zonePickerService;
};

} // namespace corvane
