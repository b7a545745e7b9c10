#include "ClientWindow.h"

#include <utility>

namespace corvane::desktop {

ClientWindow::ClientWindow(wayland::Connection &connection, xdg_wm_base *shell,
                           const Settings &settings, std::function<void()> shown)
    : shown_(std::move(shown)),
      image_(connection.sharedMemory(), {settings.width, settings.height}),
      surface_(wl_compositor_create_surface(connection.compositor())),
      shellSurface_(xdg_wm_base_get_xdg_surface(shell, surface_.get())),
      topLevel_(xdg_surface_get_toplevel(shellSurface_)) {
    constexpr unsigned green = 0xFF00A000;
    image_.image().fill(green);
    static constexpr xdg_surface_listener surfaceListener{
        .configure = [](void *data, xdg_surface *surface, std::uint32_t serial) {
            xdg_surface_ack_configure(surface, serial);
            static_cast<ClientWindow *>(data)->show();
        }};
    static constexpr xdg_toplevel_listener topLevelListener{
        .configure = [](void *, xdg_toplevel *, std::int32_t, std::int32_t, wl_array *) {},
        .close = [](void *, xdg_toplevel *) {},
        .configure_bounds = [](void *, xdg_toplevel *, std::int32_t, std::int32_t) {},
        .wm_capabilities = [](void *, xdg_toplevel *, wl_array *) {}};
    xdg_surface_add_listener(shellSurface_, &surfaceListener, this);
    xdg_toplevel_add_listener(topLevel_, &topLevelListener, this);
    xdg_toplevel_set_app_id(topLevel_, settings.application.c_str());
    setTitle(settings.title);
    // A window that cannot be resized floats.
    xdg_toplevel_set_min_size(topLevel_, settings.width, settings.height);
    xdg_toplevel_set_max_size(topLevel_, settings.width, settings.height);
    wl_surface_commit(surface_.get());
}

ClientWindow::~ClientWindow() {
    xdg_toplevel_destroy(topLevel_);
    xdg_surface_destroy(shellSurface_);
}

void ClientWindow::show() {
    wl_surface_attach(surface_.get(), image_.buffer(), 0, 0);
    wl_surface_damage_buffer(surface_.get(), 0, 0, image_.size().width(), image_.size().height());
    wl_surface_commit(surface_.get());
    if (const auto shown = std::exchange(shown_, {})) {
        shown();
    }
}

} // namespace corvane::desktop
