#include "platform/wayland/connection/Connection.h"

#include <algorithm>
#include <utility>

namespace corvane::wayland {

std::unique_ptr<Connection> Connection::open() {
    Handle<wl_display> display(wl_display_connect(nullptr));
    if (!display) {
        return nullptr;
    }
    std::unique_ptr<Connection> connection(new Connection(std::move(display))); // NOLINT
    // The first round trip brings the globals, the second the outputs' places.
    return connection->synchronise() && connection->synchronise() ? std::move(connection) : nullptr;
}

Connection::Connection(Handle<wl_display> display)
    : display_(std::move(display)),
      registry_(wl_display_get_registry(display_.get())) {
    static constexpr wl_registry_listener listener{.global = announce, .global_remove = withdraw};
    wl_registry_add_listener(registry_.get(), &listener, this);
}

void Connection::announce(void *data, wl_registry * /*registry*/, std::uint32_t name,
                          const char *interface, std::uint32_t version) {
    static_cast<Connection *>(data)->bind(name, interface, version);
}

void Connection::withdraw(void *data, wl_registry * /*registry*/, std::uint32_t name) {
    auto &self = *static_cast<Connection *>(data);
    if (std::erase_if(self.outputs_,
                      [name](const auto &output) { return output->name() == name; }) > 0) {
        self.outputChanges_.call();
    }
}

void Connection::bind(std::uint32_t name, std::string_view interface, std::uint32_t version) {
    if (interface == wl_compositor_interface.name) {
        compositor_ = bound<wl_compositor>(name, wl_compositor_interface, version, 4);
    } else if (interface == wl_shm_interface.name) {
        sharedMemory_ = bound<wl_shm>(name, wl_shm_interface, version, 1);
    } else if (interface == wl_seat_interface.name && !seat_) {
        seat_ = Offer{name, version};
    } else if (interface == wl_output_interface.name) {
        addOutput(name, version);
    } else if (interface == wp_viewporter_interface.name) {
        viewporter_ = bound<wp_viewporter>(name, wp_viewporter_interface, version, 1);
    } else if (interface == zwlr_layer_shell_v1_interface.name) {
        layerShell_ = bound<zwlr_layer_shell_v1>(name, zwlr_layer_shell_v1_interface, version, 3);
    } else if (interface == zwlr_virtual_pointer_manager_v1_interface.name) {
        virtualPointers_ = bound<zwlr_virtual_pointer_manager_v1>(
            name, zwlr_virtual_pointer_manager_v1_interface, version, 1);
    } else if (interface == org_kde_kwin_fake_input_interface.name) {
        fakeInput_ =
            bound<org_kde_kwin_fake_input>(name, org_kde_kwin_fake_input_interface, version, 4);
    } else if (interface == zxdg_output_manager_v1_interface.name) {
        outputManager_ =
            bound<zxdg_output_manager_v1>(name, zxdg_output_manager_v1_interface, version, 3);
        placeOutputs();
    }
}

template <typename Object>
Handle<Object> Connection::bound(std::uint32_t name, const wl_interface &interface,
                                 std::uint32_t offered, std::uint32_t wanted) const {
    return Handle<Object>(static_cast<Object *>(
        wl_registry_bind(registry_.get(), name, &interface, std::min(offered, wanted))));
}

Handle<wl_seat> Connection::bindSeat() const {
    constexpr std::uint32_t newestVersion = 5;
    return seat_ ? bound<wl_seat>(seat_->name, wl_seat_interface, seat_->version, newestVersion)
                 : nullptr;
}

void Connection::addOutput(std::uint32_t name, std::uint32_t version) {
    outputs_.push_back(
        std::make_unique<Output>(name, bound<wl_output>(name, wl_output_interface, version, 3),
                                 [this] { outputChanges_.call(); }));
    placeOutputs();
}

/// Outputs and the object that reports their positions are announced in any order.
void Connection::placeOutputs() {
    for (const auto &output : outputs_) {
        if (outputManager_ && !output->isFollowed()) {
            output->follow(outputManager_.get());
        }
    }
}

std::vector<const Output *> Connection::outputs() const {
    std::vector<const Output *> placed;
    for (const auto &output : outputs_) {
        if (output->frame()) {
            placed.push_back(output.get());
        }
    }
    const auto atOrigin = std::ranges::find_if(
        placed, [](const Output *output) { return output->frame()->contains({0, 0}); });
    if (atOrigin != placed.end()) {
        std::rotate(placed.begin(), atOrigin, atOrigin + 1);
    }
    return placed;
}

} // namespace corvane::wayland
