#pragma once

#include "platform/wayland/connection/Connection.h"
#include "platform/wayland/connection/SharedImage.h"
#include "xdg-shell-client-protocol.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane::desktop {

/// An ordinary window of a Wayland client, all of one colour.
class ClientWindow {
  public:
    struct Settings {
        int width = 400;
        int height = 300;
        std::string application;
        std::string title;
    };

    /// Calls `shown` once, when the window is on the screen. The rest outlives the window.
    ClientWindow(wayland::Connection &connection, xdg_wm_base *shell, const Settings &settings,
                 std::function<void()> shown);
    ~ClientWindow();

    ClientWindow(const ClientWindow &) = delete;
    ClientWindow &operator=(const ClientWindow &) = delete;

    wl_surface *surface() const { return surface_.get(); }
    void setTitle(const std::string &title) { xdg_toplevel_set_title(topLevel_, title.c_str()); }

  private:
    void show();

    std::function<void()> shown_;
    wayland::SharedImage image_;
    const wayland::Handle<wl_surface> surface_;
    xdg_surface *const shellSurface_;
    xdg_toplevel *const topLevel_;
};

} // namespace corvane::desktop
