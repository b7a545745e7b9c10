#pragma once

#include "Desktop.h"
#include "DisplayConnection.h"
#include "actors/Pointer.h"
#include "probes/Screenshot.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

namespace corvane::desktop {

/// A Wayland desktop nobody looks at: sway with XWayland and two monitors side by side, 1280 by 800
/// and 800 by 600 pixels. Ready to be used when constructed; ends with its owner.
class WaylandDesktop : public Desktop {
  public:
    /// `settings` are further lines of the compositor's configuration.
    explicit WaylandDesktop(const std::string &settings = {});

    /// Has the compositor carry out one of its commands; throws when it refuses.
    void command(const std::string &text) const;

    /// Moves a window, found by its title, and waits until it is there.
    void place(const std::string &title, Position position) const;

    /// Whether the compositor shows a window of that title.
    bool shows(const std::string &title) const;

    /// Presses Super, Shift and Y as on a keyboard, and holds them that long.
    void pressHotKey(std::chrono::milliseconds held = {}) const;

    /// Taps a key, as xkb names it.
    void tap(const std::string &key) const;

    /// The colour that the monitors show there.
    Pixel colourAt(Position position) const;

    /// Saves what all monitors show; throws when that fails.
    void saveScreenshot(const std::filesystem::path &file) const { run({"grim", file}); }

    /// Whether the compositor still runs.
    bool isWhole() const { return compositor_->isRunning(); }

    /// Takes the compositor away from everybody.
    void stopCompositor();

  private:
    void startCompositor(const std::string &settings);
    void takeStatusIcons();

    std::unique_ptr<ChildProcess> compositor_;
    /// A keyboard that is always there, so that programs listen to it.
    std::unique_ptr<ChildProcess> keyboard_;
    /// To the X server for XWayland's clients.
    std::unique_ptr<DisplayConnection> connection_;
};

} // namespace corvane::desktop
