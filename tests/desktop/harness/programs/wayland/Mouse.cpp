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

class KWinMouse : public Mouse {
  public:
    explicit KWinMouse(const wayland::Connection &connection) : input_(connection.fakeInput()) {
        org_kde_kwin_fake_input_authenticate(input_, "test", "test");
    }

    void moveTo(Point place) override {
        org_kde_kwin_fake_input_pointer_motion_absolute(input_, wl_fixed_from_double(place.x),
                                                        wl_fixed_from_double(place.y));
    }

    void change(std::uint32_t button, bool isPress) override {
        org_kde_kwin_fake_input_button(input_, button, isPress ? 1 : 0);
    }

  private:
    org_kde_kwin_fake_input *const input_;
};

} // namespace

std::unique_ptr<Mouse> Mouse::make(const wayland::Connection &connection) {
    if (connection.virtualPointers() != nullptr) {
        return std::make_unique<VirtualMouse>(connection);
    }
    if (connection.fakeInput() != nullptr) {
        return std::make_unique<KWinMouse>(connection);
    }
    return nullptr;
}

} // namespace corvane::desktop
