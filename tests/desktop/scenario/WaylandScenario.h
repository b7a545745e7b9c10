#pragma once

#include "Settings.h"
#include "actors/CorvaneProcess.h"
#include "actors/WaylandClient.h"
#include "servers/Compositors.h"

#include <filesystem>
#include <memory>
#include <string>

namespace corvane::desktop {

/// What a user sees of Corvane in a Wayland session, printed on standard output.
class WaylandScenario {
  public:
    /// On a desktop with the compositor of that name. Pictures of the desktop go to `pictures`,
    /// which is made where missing.
    WaylandScenario(std::string compositor, std::filesystem::path pictures);

    /// Plays both acts; whether everything went as it should.
    bool play();

  private:
    /// Clicks at the pointer until the limit.
    void playLimitedRun();
    /// Clicks in a zone that follows its window.
    void playAnchoredZone();

    std::unique_ptr<CorvaneProcess> start(const Settings &settings);
    void end(CorvaneProcess &corvane);
    bool waitForMoreClicks(int count) const;
    bool staysQuiet() const;
    void takePicture(const std::string &name) const;

    /// Tells whether it is so; the scenario fails if not.
    void expect(bool isSo, const std::string &what);

    const std::string compositor_;
    const std::filesystem::path pictures_;
    const std::unique_ptr<WaylandDesktop> ownDesktop_;
    WaylandDesktop &desktop_ = *ownDesktop_;
    WaylandClient client_{desktop_};
    bool isAsItShould_ = true;
};

} // namespace corvane::desktop
