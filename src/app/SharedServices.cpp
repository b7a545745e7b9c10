#include "app/SharedServices.h"

#include "platform/Application.h"
#include "platform/Platform.h"

namespace corvane {

SharedServices::SharedServices(platform::Platform &platform)
    : configService(platform.fileSystem(), platform.application().homeDirectory()),
      profileService(platform.fileSystem(), platform.application().homeDirectory()),
      appState(configService, profileService, storeQueue, platform.mainQueue()),
      alerts(platform.alerts(), appState),
      clickerService(platform.mouseEvents(), platform.clock()),
      windowResolver(platform.windowList(), platform.applications(), platform.accessibility()),
      zonePickerService(platform.screens(), platform.overlayWindows(), alerts,
                        platform.applications(), platform.application(), windowResolver) {}

} // namespace corvane
