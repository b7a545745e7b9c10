#pragma once

#include "WaylandDesktop.h"

#include <memory>
#include <string>

namespace corvane::desktop {

/// labwc, both monitors of 1280 by 720 pixels. It gives programs neither hot keys nor the places of
/// windows: its configuration has the hot key run `corvane toggle`.
class LabwcDesktop : public WaylandDesktop {
  public:
    LabwcDesktop();

    /// Waits until the corner of a window is there.
    void place(const std::string &title, Position position) const override;
    /// A window that a client has shown is on the screen when it can be placed.
    bool shows(const std::string & /*title*/) const override { return true; }

    void pressHotKey(std::chrono::milliseconds held = {}) const override;
    void tapEscape() const override { run({"wtype", "-k", "Escape"}); }
    void saveScreenshot(const std::filesystem::path &file) const override { run({"grim", file}); }

  private:
    void startLabwc();
    bool isCornerOfWindow(Position position) const;
    void writeSettings(const std::string &placing = {}) const;

    /// A keyboard that is always there, so that programs listen to it.
    std::unique_ptr<ChildProcess> keyboard_;
};

} // namespace corvane::desktop
