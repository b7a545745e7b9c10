#pragma once

#include "platform/Platform.h"
#include "support/FakeAccessibility.h"
#include "support/FakeApplications.h"
#include "support/FakeLocalisation.h"
#include "support/FakeScreens.h"
#include "support/FakeWindowList.h"
#include "support/recorder/HandTurnedClock.h"
#include "support/recorder/MemoryFileSystem.h"
#include "support/recorder/RecordingAlerts.h"
#include "support/recorder/RecordingApplication.h"
#include "support/recorder/RecordingCommandEndpoint.h"
#include "support/recorder/RecordingHotKeys.h"
#include "support/recorder/RecordingLoginItem.h"
#include "support/recorder/RecordingMainQueue.h"
#include "support/recorder/RecordingMouseEvents.h"
#include "support/recorder/RecordingOverlayWindows.h"
#include "support/recorder/RecordingSettingsWindows.h"
#include "support/recorder/RecordingStatusBar.h"
#include "support/recorder/RecordingUserSession.h"
#include "support/recorder/RecordingWorkspace.h"

namespace corvane::testing {

/// A system in memory: it records what the program does, and a test plays the user, the other
/// programs and the clock. The thread that creates it is the main thread.
class RecordingPlatform : public platform::Platform {
  public:
    FakeAccessibility &accessibility() override { return accessibility_; }
    RecordingAlerts &alerts() override { return alerts_; }
    RecordingApplication &application() override { return application_; }
    FakeApplications &applications() override { return applications_; }
    HandTurnedClock &clock() override { return clock_; }
    RecordingCommandEndpoint &commandEndpoint() override { return commandEndpoint_; }
    MemoryFileSystem &fileSystem() override { return fileSystem_; }
    RecordingHotKeys &hotKeys() override { return hotKeys_; }
    FakeLocalisation &localisation() override { return localisation_; }
    RecordingLoginItem &loginItem() override { return loginItem_; }
    RecordingMainQueue &mainQueue() override { return mainQueue_; }
    RecordingMouseEvents &mouseEvents() override { return mouseEvents_; }
    RecordingOverlayWindows &overlayWindows() override { return overlayWindows_; }
    FakeScreens &screens() override { return screens_; }
    RecordingSettingsWindows &settingsWindows() override { return settingsWindows_; }
    RecordingStatusBar &statusBar() override { return statusBar_; }
    RecordingUserSession &userSession() override { return userSession_; }
    FakeWindowList &windowList() override { return windowList_; }
    RecordingWorkspace &workspace() override { return workspace_; }

    /// Makes the system behave as Apple documents its own: it refuses the keyboard to programs that
    /// are not in front and login items of programs that are not signed, keeps the names of windows
    /// to itself, gives a hot key to everybody, and always shows status items; under an alert it
    /// lets nothing reach overlays. Where the back end can lift such a limit, the program must not
    /// depend on that. An alert that refuses the end of the program is `refusesEndUnder`: the back
    /// end lifts that one for every alert.
    void behaveAsMac();

    /// Lets time pass for the main thread: turns the clock from one timer to the next and the main
    /// queue with it. Main thread.
    void advance(std::chrono::nanoseconds duration);

  private:
    FakeAccessibility accessibility_;
    RecordingAlerts alerts_;
    RecordingApplication application_;
    FakeApplications applications_;
    HandTurnedClock clock_;
    RecordingCommandEndpoint commandEndpoint_;
    MemoryFileSystem fileSystem_;
    RecordingHotKeys hotKeys_;
    FakeLocalisation localisation_;
    RecordingLoginItem loginItem_;
    RecordingMainQueue mainQueue_{clock_};
    RecordingMouseEvents mouseEvents_{clock_};
    RecordingOverlayWindows overlayWindows_;
    FakeScreens screens_;
    RecordingSettingsWindows settingsWindows_;
    RecordingStatusBar statusBar_;
    RecordingUserSession userSession_;
    FakeWindowList windowList_;
    RecordingWorkspace workspace_;
};

} // namespace corvane::testing
