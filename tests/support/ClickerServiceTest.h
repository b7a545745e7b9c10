#pragma once

#include "services/ClickerService.h"
#include "support/LineCapture.h"
#include "support/RunCallbacks.h"
#include "support/recorder/HandTurnedClock.h"
#include "support/recorder/RecordingMouseEvents.h"

#include <gtest/gtest.h>

#include <memory>

namespace corvane::testing {

/// The click engine with a recorded mouse and a clock turned by hand.
class ClickerServiceTest : public ::testing::Test {
  protected:
    ~ClickerServiceTest() override { clock_.setSleepsBlock(false); }

    void start(const CorvaneConfig &config, std::shared_ptr<DynamicZoneRect> liveZone = nullptr) {
        clicker_.start(config, std::move(liveZone), callbacks_.onClick(), callbacks_.onFinish());
    }

    /// Waits until the run waits for its next click.
    [[nodiscard]] bool awaitWait() { return clock_.awaitBlocked(); }

    /// Turns the clock to the next click and waits until it is over.
    [[nodiscard]] bool clickAgain() {
        clock_.advanceTo(clock_.deadlines().at(0));
        return awaitWait();
    }

    void stopAndAwait() {
        clicker_.stop();
        clicker_.awaitEnd();
    }

    LogCapture log_;
    HandTurnedClock clock_;
    RecordingMouseEvents mouse_{clock_};
    RunCallbacks callbacks_;
    ClickerService clicker_{mouse_, clock_};
};

} // namespace corvane::testing
