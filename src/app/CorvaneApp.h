#pragma once

#include "app/AppDelegate.h"
#include "app/SharedServices.h"

namespace corvane {

namespace platform {
class Platform;
}

/// The application: what a native program creates once and forwards the events of its life to. Main
/// thread. Destroying it ends every run and finishes every save.
class CorvaneApp {
  public:
    /// The platform outlives the application.
    explicit CorvaneApp(platform::Platform &platform);
    ~CorvaneApp();
    CorvaneApp(const CorvaneApp &) = delete;
    CorvaneApp &operator=(const CorvaneApp &) = delete;

    AppDelegate &appDelegate() { return appDelegate_; }
    SharedServices &sharedServices() { return shared_; }

    /// Ends every run and finishes every save, for a program that has lost its display and ends
    /// without destroying what it shows.
    void finishWork();

  private:
    SharedServices shared_;
    AppDelegate appDelegate_;
};

} // namespace corvane
