#pragma once

#include "WaylandDesktop.h"

#include <memory>
#include <string>

namespace corvane::desktop {

/// sway, the second monitor of 800 by 600 pixels.
class SwayDesktop : public WaylandDesktop {
  public:
    /// `settings` are further lines of the compositor's configuration.
    explicit SwayDesktop(const std::string &settings = {});

    /// Starts sway again after its end.
    void restart() { startSession({}); }

    /// Has sway carry out one of its commands; throws when it refuses.
    void command(const std::string &text) const;

    void pressHotKey(std::chrono::milliseconds held = {}) const override;
    void tapEscape() const override { run({"wtype", "-k", "Escape"}); }
    void saveScreenshot(const std::filesystem::path &file) const override {
        // One pixel for a unit of the layout.
        run({"grim", "-s", "1", file});
    }

  private:
    void startSession(const std::string &settings);
    void startSway(const std::string &settings);
    void requestPlace(const std::string &title, Position position) const override;
    std::optional<Position> positionOf(const std::string &title) const override;

    /// A keyboard that is always there, so that programs listen to it.
    std::unique_ptr<ChildProcess> keyboard_;
};

} // namespace corvane::desktop
