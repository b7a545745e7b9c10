#pragma once

#include "Settings.h"
#include "actors/ClickClient.h"
#include "actors/CorvaneProcess.h"
#include "actors/Keyboard.h"
#include "actors/Pointer.h"
#include "servers/VirtualDesktop.h"

#include <filesystem>
#include <memory>
#include <string>

namespace corvane::desktop {

/// What a user sees of Corvane, played on a virtual desktop and printed on standard output.
class Scenario {
  public:
    /// Pictures of the desktop go to `pictures`, which is made where missing.
    explicit Scenario(std::filesystem::path pictures);

    /// Plays both acts; whether everything went as it should.
    bool play();

  private:
    /// Clicks at the pointer until the limit.
    void playLimitedRun();
    /// Clicks in a zone that follows its window.
    void playAnchoredZone();

    std::unique_ptr<CorvaneProcess> start(const Settings &settings);
    void end(CorvaneProcess &corvane);
    void showMenu();
    bool waitForMoreClicks(int count) const;
    bool staysQuiet() const;
    void takePicture(const std::string &name);

    /// Tells whether it is so; the scenario fails if not.
    void expect(bool isSo, const std::string &what);

    std::filesystem::path pictures_;
    VirtualDesktop desktop_{{.hasCompositor = true, .hasPanel = true}};
    ClickClient client_{desktop_};
    Pointer pointer_{desktop_.connection()};
    Keyboard keyboard_{desktop_.connection()};
    int window_;
    bool isAsItShould_ = true;
};

} // namespace corvane::desktop
