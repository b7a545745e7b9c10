#include "platform/wayland/click/ClickDevice.h"

#include <chrono>
#include <cstdint>
#include <linux/input-event-codes.h>

namespace corvane::wayland {

namespace {

/// A pointing device of our own, as wlroots compositors offer it.
class VirtualPointer : public ClickDevice {
  public:
    explicit VirtualPointer(Connection &connection)
        : connection_(connection),
          seat_(connection.bindSeat()),
          pointer_(zwlr_virtual_pointer_manager_v1_create_virtual_pointer(
              connection.virtualPointers(), seat_.get())) {}

    /// The compositor finds the surface beneath a pointer anew only when the pointer moves; a press
    /// after a change of surfaces would be lost.
    void press() override {
        refreshFocus();
        send(WL_POINTER_BUTTON_STATE_PRESSED);
    }

    void release() override { send(WL_POINTER_BUTTON_STATE_RELEASED); }

    void refreshFocus() override {
        zwlr_virtual_pointer_v1_motion(pointer_.get(), now(), 0, 0);
        zwlr_virtual_pointer_v1_frame(pointer_.get());
    }

  private:
    void send(wl_pointer_button_state state) {
        zwlr_virtual_pointer_v1_button(pointer_.get(), now(), BTN_LEFT, state);
        zwlr_virtual_pointer_v1_frame(pointer_.get());
        connection_.flush();
    }

    /// Milliseconds of the monotonic clock, as the compositor counts them.
    static std::uint32_t now() {
        const auto time = std::chrono::steady_clock::now().time_since_epoch();
        return static_cast<std::uint32_t>(
            std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
    }

    Connection &connection_;
    const Handle<wl_seat> seat_;
    const Handle<zwlr_virtual_pointer_v1> pointer_;
};

} // namespace

std::unique_ptr<ClickDevice> ClickDevice::make(Connection &connection) {
    return connection.virtualPointers() != nullptr ? std::make_unique<VirtualPointer>(connection)
                                                   : nullptr;
}

} // namespace corvane::wayland
