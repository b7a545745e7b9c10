#include "platform/wayland/connection/Output.h"

#include <utility>

namespace corvane::wayland {

Output::Output(std::uint32_t name, Handle<wl_output> output, std::function<void()> changed)
    : name_(name),
      changed_(std::move(changed)),
      output_(std::move(output)) {
    static constexpr wl_output_listener listener{
        .geometry = [](void *, wl_output *, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                       std::int32_t, const char *, const char *, std::int32_t) {},
        .mode = [](void *, wl_output *, std::uint32_t, std::int32_t, std::int32_t, std::int32_t) {},
        .done = [](void *data, wl_output *) { static_cast<Output *>(data)->apply(); },
        .scale = [](void *, wl_output *, std::int32_t) {},
        .name = [](void *, wl_output *, const char *) {},
        .description = [](void *, wl_output *, const char *) {}};
    wl_output_add_listener(output_.get(), &listener, this);
}

void Output::follow(zxdg_output_manager_v1 *manager) {
    static constexpr zxdg_output_v1_listener listener{
        .logical_position =
            [](void *data, zxdg_output_v1 *, std::int32_t x, std::int32_t y) {
                auto &pending = static_cast<Output *>(data)->pending_;
                pending.x = x;
                pending.y = y;
            },
        .logical_size =
            [](void *data, zxdg_output_v1 *, std::int32_t width, std::int32_t height) {
                auto &pending = static_cast<Output *>(data)->pending_;
                pending.width = width;
                pending.height = height;
            },
        // Before version 3 of the protocol; since then `done` of the output itself.
        .done = [](void *data, zxdg_output_v1 *) { static_cast<Output *>(data)->apply(); },
        .name = [](void *, zxdg_output_v1 *, const char *) {},
        .description = [](void *, zxdg_output_v1 *, const char *) {}};
    place_.reset(zxdg_output_manager_v1_get_xdg_output(manager, output_.get()));
    zxdg_output_v1_add_listener(place_.get(), &listener, this);
}

void Output::apply() {
    const bool isKnown = pending_.width > 0 && pending_.height > 0;
    if (isKnown && frame_ != pending_) {
        frame_ = pending_;
        changed_();
    }
}

} // namespace corvane::wayland
