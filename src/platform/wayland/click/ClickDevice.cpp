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

/// KWin's pointing device for programs that have the right to it.
class FakeInput : public ClickDevice {
  public:
    explicit FakeInput(Connection &connection) : connection_(connection) {
        org_kde_kwin_fake_input_authenticate(connection_.fakeInput(), "Corvane",
                                             "press the left mouse button");
    }

    void press() override { send(WL_POINTER_BUTTON_STATE_PRESSED); }
    void release() override { send(WL_POINTER_BUTTON_STATE_RELEASED); }

    /// KWin does so whenever a surface changes.
    void refreshFocus() override {}

  private:
    void send(wl_pointer_button_state state) {
        org_kde_kwin_fake_input_button(connection_.fakeInput(), BTN_LEFT, state);
        connection_.flush();
    }

    Connection &connection_;
};

} // namespace

bool ClickDevice::isOffered(const Connection &connection) {
    const bool canFindCursor = connection.viewporter() != nullptr;
    return (connection.virtualPointers() != nullptr && canFindCursor) ||
           connection.fakeInput() != nullptr;
}

std::unique_ptr<ClickDevice> ClickDevice::make(Connection &connection) {
    if (connection.virtualPointers() != nullptr) {
        return std::make_unique<VirtualPointer>(connection);
    }
    if (connection.fakeInput() != nullptr) {
        return std::make_unique<FakeInput>(connection);
    }
    return nullptr;
}

} // namespace corvane::wayland
