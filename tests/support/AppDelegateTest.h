#pragma once

#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "support/LineCapture.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace corvane::testing {

/// The whole portable program on the recording back end.
class AppDelegateTest : public ::testing::Test {
  protected:
    /// On the plain recorder or, where CORVANE_TEST_SYSTEM is "mac", on one that behaves as Apple
    /// documents its system.
    AppDelegateTest();

    /// Shows the status item, loads the files and registers the hot key.
    void launch();

    /// Lets the store finish and the main queue turn until there is nothing left to do.
    void settle();

    /// Starts a run as the user would and waits until the engine waits after its first click.
    void startRunning();

    /// Turns the main queue until the run is over.
    void awaitIdle();

    /// How often the log holds that line.
    std::ptrdiff_t logged(const std::string &line) const;

    /// The file's text; empty without a file.
    std::string configFile();

    AppState &state() { return shared.appState; }
    RecordedStatusItem &statusItem() { return platform.statusBar().item(); }

    /// A zone anchored to a window of a running application.
    void anchorZone();

    LogCapture logCapture;
    RecordingPlatform platform;
    SharedServices shared{platform};
    std::shared_ptr<AppDelegate> delegate = std::make_shared<AppDelegate>(platform, shared);
};

} // namespace corvane::testing
