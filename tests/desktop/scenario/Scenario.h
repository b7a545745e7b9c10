#pragma once

#include "Settings.h"
#include "Stage.h"
#include "actors/CorvaneProcess.h"

#include <filesystem>
#include <memory>
#include <string>

namespace corvane::desktop {

/// What a user sees of Corvane, played on a desktop and printed on standard output.
class Scenario {
  public:
    /// Pictures of the desktop go to `pictures`, which is made where missing. The stage outlives
    /// the scenario.
    Scenario(Stage &stage, std::filesystem::path pictures);

    /// Plays both acts; whether everything went as it should.
    bool play();

  private:
    /// Clicks at the pointer until the limit.
    void playLimitedRun();
    /// Clicks in a zone that follows its window.
    void playAnchoredZone();

    std::unique_ptr<CorvaneProcess> start(const Settings &settings);
    void end(CorvaneProcess &corvane);
    bool waitForClicks(std::size_t count) const;
    bool waitForMoreClicks(std::size_t count) const;
    bool staysQuiet() const;
    void takePicture(const std::string &name);

    /// Prints whether it is so; the scenario fails if not.
    void expect(bool isSo, const std::string &what);

    Stage &stage_;
    const std::filesystem::path pictures_;
    bool isAsItShould_ = true;
};

} // namespace corvane::desktop
