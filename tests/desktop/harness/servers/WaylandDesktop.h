#pragma once

#include "Desktop.h"
#include "DisplayConnection.h"
#include "actors/Pointer.h"
#include "probes/Screenshot.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A Wayland desktop nobody looks at, with XWayland and two monitors side by side, the first one
/// 1280 pixels wide. Ready to be used when constructed; ends with its owner.
class WaylandDesktop : public Desktop {
  public:
    virtual ~WaylandDesktop() = default;

    /// Moves a window, found by its title, and waits until it is there.
    virtual void place(const std::string &title, Position position) const;

    /// Whether the compositor shows a window of that title.
    virtual bool shows(const std::string &title) const { return positionOf(title).has_value(); }

    /// Presses Super, Shift and Y as on a keyboard, and holds them that long.
    virtual void pressHotKey(std::chrono::milliseconds held = {}) const = 0;

    virtual void tapEscape() const = 0;

    /// Where the desktop asks its user before a program may click: lets the Corvane that has just
    /// started do so. False elsewhere.
    virtual bool consent() const { return false; }

    /// The colour that the monitors show there.
    Pixel colourAt(Position position) const;

    /// What is to be seen there, in words that change when something comes to cover it.
    virtual std::string sightAt(Position position) const;

    /// Saves what all monitors show; throws when that fails.
    virtual void saveScreenshot(const std::filesystem::path &file) const = 0;

    /// Whether the compositor still runs.
    bool isWhole() const { return compositor_->isRunning(); }

    /// Has the compositor stand still, and go on.
    void pauseCompositor() const { compositor_->signal(SIGSTOP); }
    void continueCompositor() const { compositor_->signal(SIGCONT); }

    /// Takes the compositor away from everybody.
    void stopCompositor();
    /// Takes the X server away, which the compositor has started.
    void stopXWayland() const;

  protected:
    WaylandDesktop() = default;

    /// Starts the compositor, whose session has to write the values of these variables into
    /// `sessionVariables`, and adopts them. Waits for nothing where there are none.
    void startCompositor(const std::vector<std::string> &arguments, const Environment &environment,
                         const std::vector<std::string> &variables);
    std::filesystem::path sessionVariables() const { return folder() / "session-variables"; }

    /// A program without a status icon would open its settings window.
    void takeStatusIcons();

  private:
    // Of a compositor that reports and moves windows.
    virtual void requestPlace(const std::string & /*title*/, Position /*position*/) const {}
    virtual std::optional<Position> positionOf(const std::string & /*title*/) const { return {}; }

    std::unique_ptr<ChildProcess> compositor_;
    /// To the X server for XWayland's clients.
    std::unique_ptr<DisplayConnection> connection_;
};

} // namespace corvane::desktop
