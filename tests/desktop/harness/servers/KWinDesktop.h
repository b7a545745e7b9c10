#pragma once

#include "HelperProgram.h"
#include "WaylandDesktop.h"

#include <memory>
#include <string>

namespace corvane::desktop {

/// KWin as on KDE Plasma, both monitors of 1280 by 800 units.
class KWinDesktop : public WaylandDesktop {
  public:
    /// Whether KWin has been given the desktop file by which it lets Corvane click.
    enum class Permission { given, missing };

    /// With that many pixels to a unit.
    explicit KWinDesktop(Permission permission = Permission::given, double scale = 1);

    void pressHotKey(std::chrono::milliseconds held = {}) const override;
    void tapEscape() const override;
    /// Without OpenGL, KWin 6 takes no screenshots: there it is the window in front.
    std::string sightAt(Position position) const override;
    void saveScreenshot(const std::filesystem::path &file) const override;

  private:
    bool takesScreenshots() const;
    void writeSettings() const;
    void permit(const std::string &program) const;
    void startKWin(double scale);
    void change(int key, bool isPress) const;
    void requestPlace(const std::string &title, Position position) const override;
    std::optional<Position> positionOf(const std::string &title) const override;

    /// Reaches KWin for the tests. Its keyboard is always there.
    std::unique_ptr<HelperProgram> control_;
};

} // namespace corvane::desktop
