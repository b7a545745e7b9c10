#pragma once

#include "HelperProgram.h"
#include "Settings.h"
#include "WaylandDesktop.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// GNOME Shell with PipeWire and the desktop's portal, the second monitor of 800 by 600 pixels.
class GnomeDesktop : public WaylandDesktop {
  public:
    GnomeDesktop();

    void pressHotKey(std::chrono::milliseconds held = {}) const override;
    void tapEscape() const override;
    void saveScreenshot(const std::filesystem::path &file) const override;
    bool consent() const override;

    /// Takes back what programs may do, as the user does in the top bar.
    void revokeConsent() const { control_->demand("revoke"); }

  private:
    /// Places in the window in which the portal asks, from its right and its upper edge.
    struct PortalWindow {
        Position blueFromTheStart;
        std::vector<Position> monitorsToChoose;
        Position remoteInteraction;
        Position share;
    };

    PortalWindow portalWindow() const;
    void writeSettings() const;
    void startShell();
    void startPipeWire();
    void startPortal();
    void awaitFocus(const std::string &title) const;
    void awaitBlue(const std::function<Position()> &position) const;
    void change(int key, bool isPress) const;
    void tap(int key) const;
    void click(Position position) const;
    void requestPlace(const std::string &title, Position position) const override;
    std::optional<Position> positionOf(const std::string &title) const override;
    /// Of the window that has that title or belongs to that application.
    std::optional<Area> frameOf(const std::string &window) const;
    /// Waits until such a window is drawn.
    Area awaitWindow(const std::string &window) const;

    /// Reaches GNOME Shell for the tests.
    std::unique_ptr<HelperProgram> control_;
    std::vector<std::unique_ptr<ChildProcess>> services_;
};

} // namespace corvane::desktop
