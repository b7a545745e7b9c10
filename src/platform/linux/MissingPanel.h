#pragma once

#include "app/LaunchCause.h"
#include "services/NoticeService.h"
#include "support/WeakCallbacks.h"

#include <memory>

namespace corvane {

namespace platform {
class Platform;
class Timer;
} // namespace platform
class AppDelegate;
struct SharedServices;

namespace linux {

/// A desktop that shows no status icons, and so no menu of Corvane's: the settings open instead,
/// and once for each user a notice says what is missing. Main thread.
class MissingPanel {
  public:
    /// All outlive it.
    MissingPanel(platform::Platform &platform, SharedServices &shared, AppDelegate &delegate);
    ~MissingPanel();

    /// To be called when the program is up: gives a panel time to take the icon. At login it starts
    /// beside this program, and on a busy machine much later.
    void await(LaunchCause cause);

  private:
    void check();

    platform::Platform &platform_;
    SharedServices &shared_;
    AppDelegate &delegate_;
    NoticeService notices_;
    std::unique_ptr<platform::Timer> timer_;
    const WeakCallbacks<MissingPanel> weakly_{*this};
};

} // namespace linux

} // namespace corvane
