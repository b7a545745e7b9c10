#pragma once

#include "app/AppDelegate.h"
#include "app/SharedServices.h"

#include <memory>

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

    AppDelegate &appDelegate() { return *appDelegate_; }

    /// Waits until all that was changed so far is saved, for a program that has to end without
    /// destroying its application.
    void finishSaves() { shared_.storeQueue.drain(); }

  private:
    SharedServices shared_;
    std::shared_ptr<AppDelegate> appDelegate_;
};

} // namespace corvane
