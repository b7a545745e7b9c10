#pragma once

#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "presentation/Menu.h"

namespace corvane {

namespace platform {
class Platform;
}

/// The application: what a native program creates once and tells of the events of its life. Main
/// thread. Destroying it ends every run and finishes every save.
class CorvaneApp {
  public:
    /// The platform outlives the application.
    explicit CorvaneApp(platform::Platform &platform);
    ~CorvaneApp();

    void applicationDidFinishLaunching() { appDelegate_.applicationDidFinishLaunching(); }
    void applicationWillTerminate() { appDelegate_.applicationWillTerminate(); }
    void applicationShouldHandleReopen() { appDelegate_.applicationShouldHandleReopen(); }

  private:
    SharedServices shared_;
    AppDelegate appDelegate_;
};

} // namespace corvane
