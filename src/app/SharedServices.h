#pragma once

#include "app/AppState.h"
#include "services/ClickerService.h"
#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "services/WindowResolver.h"
#include "services/ZonePickerService.h"
#include "support/SerialQueue.h"

namespace corvane {

namespace platform {
class Platform;
}

/// The one instance of each service in the program, kept for its life.
class SharedServices {
  public:
    explicit SharedServices(platform::Platform &platform);

    ConfigService configService;
    ProfileService profileService;
    ClickerService clickerService;
    WindowResolver windowResolver;
    ZonePickerService zonePickerService;

  private:
    /// Does the stores' file work; finishes all of it before the stores go.
    SerialQueue storeQueue_;

  public:
    AppState appState;
};

} // namespace corvane
