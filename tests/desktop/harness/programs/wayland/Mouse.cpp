#include "Mouse.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

class VirtualMouse : public Mouse {
  public:
    explicit VirtualMouse(const wayland::Connection &connection)
        : connection_(connection),
          seat_(connection.bindSeat()),
          pointer_(zwlr_virtual_pointer_manager_v1_create_virtual_pointer(
              connection.virtualPointers(), seat_.get())) {}

    /// The compositor wants a share of the whole layout, which begins at the origin.
    void moveTo(Point place) override {
        double width = 0;
        double height = 0;
        for (const wayland::Output *output : connection_.outputs()) {
            width = std::max(width, output->frame()->maxX());
            height = std::max(height, output->frame()->maxY());
        }
        zwlr_virtual_pointer_v1_motion_absolute(
            pointer_.get(), 0, static_cast<std::uint32_t>(place.x),
            static_cast<std::uint32_t>(place.y), static_cast<std::uint32_t>(width),
            static_cast<std::uint32_t>(height));
        zwlr_virtual_pointer_v1_frame(pointer_.get());
    }

    void change(std::uint32_t button, bool isPress) override {
        zwlr_virtual_pointer_v1_button(pointer_.get(), 0, button,
                                       isPress ? WL_POINTER_BUTTON_STATE_PRESSED
                                               : WL_POINTER_BUTTON_STATE_RELEASED);
        zwlr_virtual_pointer_v1_frame(pointer_.get());
    }

  private:
    const wayland::Connection &connection_;
    const wayland::Handle<wl_seat> seat_;
    const wayland::Handle<zwlr_virtual_pointer_v1> pointer_;
};

} // namespace

std::unique_ptr<Mouse> Mouse::make(const wayland::Connection &connection) {
    return connection.virtualPointers() != nullptr ? std::make_unique<VirtualMouse>(connection)
                                                   : nullptr;
}

} // namespace corvane::desktop
