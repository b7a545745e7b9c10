#pragma once

#include "platform/wayland/connection/Handle.h"
#include "platform/wayland/connection/Output.h"
#include "support/Geometry.h"
#include "support/Subscriptions.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::wayland {

/// A connection to the compositor with what it offers. Used by one thread only.
class Connection {
  public:
    /// To the compositor that WAYLAND_DISPLAY names; null where none can be reached.
    static std::unique_ptr<Connection> open();

    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    ~Connection() = default;

    wl_display *display() const { return display_.get(); }

    /// Whether the compositor has gone or has ended the connection.
    bool isLost() const { return wl_display_get_error(display_.get()) != 0; }

    /// Sends what is buffered, waits until the compositor has carried it out and handles the events
    /// that came. False when the connection is lost.
    bool synchronise() { return wl_display_roundtrip(display_.get()) >= 0; }

    void flush() { wl_display_flush(display_.get()); }

    // Null where the compositor does not offer it.
    wl_compositor *compositor() const { return compositor_.get(); }
    wl_shm *sharedMemory() const { return sharedMemory_.get(); }
    wp_viewporter *viewporter() const { return viewporter_.get(); }
    zwlr_layer_shell_v1 *layerShell() const { return layerShell_.get(); }
    zwlr_virtual_pointer_manager_v1 *virtualPointers() const { return virtualPointers_.get(); }
    org_kde_kwin_fake_input *fakeInput() const { return fakeInput_.get(); }

    /// The user's seat, anew for each caller; null where the compositor has none.
    Handle<wl_seat> bindSeat() const;

    /// Those whose place is known, the one at the origin of the layout first.
    std::vector<const Output *> outputs() const;

    using Subscription = Subscriptions<>::Subscription;

    /// Calls `changed` after an output has come, gone, moved or changed its size.
    [[nodiscard]] Subscription whenOutputsChange(std::function<void()> changed) {
        return outputChanges_.add(std::move(changed));
    }

  private:
    explicit Connection(Handle<wl_display> display);

    static void announce(void *data, wl_registry *registry, std::uint32_t name,
                         const char *interface, std::uint32_t version);
    static void withdraw(void *data, wl_registry *registry, std::uint32_t name);
    void bind(std::uint32_t name, std::string_view interface, std::uint32_t version);
    template <typename Object>
    Handle<Object> bound(std::uint32_t name, const wl_interface &interface, std::uint32_t offered,
                         std::uint32_t wanted) const;
    /// A global of the registry.
    struct Offer {
        std::uint32_t name;
        std::uint32_t version;
    };

    void addOutput(std::uint32_t name, std::uint32_t version);
    void placeOutputs();

    // The objects go before the connection.
    const Handle<wl_display> display_;
    Handle<wl_registry> registry_;
    Handle<wl_compositor> compositor_;
    Handle<wl_shm> sharedMemory_;
    Handle<wp_viewporter> viewporter_;
    Handle<zwlr_layer_shell_v1> layerShell_;
    Handle<zwlr_virtual_pointer_manager_v1> virtualPointers_;
    Handle<org_kde_kwin_fake_input> fakeInput_;
    Handle<zxdg_output_manager_v1> outputManager_;
    std::optional<Offer> seat_;
    Subscriptions<> outputChanges_;
    std::vector<std::unique_ptr<Output>> outputs_;
};

} // namespace corvane::wayland
