#include "Mouse.h"

#include "GnomeShell.h"
#include "WaitUntil.h"

#include <algorithm>
#include <stdexcept>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

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

class GnomeMouse : public Mouse {
  public:
    GnomeMouse() {
        run(u"void (global.corvaneMouse = imports.gi.Clutter.get_default_backend()"
            u".get_default_seat().create_virtual_device("
            u"imports.gi.Clutter.InputDeviceType.POINTER_DEVICE))"_s);
    }

    /// Returns when the pointer is there: GNOME Shell moves it on another thread.
    void moveTo(Point place) override {
        run(u"global.corvaneMouse.notify_absolute_motion(imports.gi.GLib.get_monotonic_time(), "
            u"%1, %2)"_s.arg(place.x)
                .arg(place.y));
        const QString there = u"[%1,%2]"_s.arg(place.x).arg(place.y);
        waitUntil(
            [&] { return GnomeShell::evaluate(u"global.get_pointer().slice(0, 2)"_s) == there; });
    }

    void change(std::uint32_t /*button*/, bool isPress) override {
        run(u"global.corvaneMouse.notify_button(imports.gi.GLib.get_monotonic_time(), 1, "
            u"imports.gi.Clutter.ButtonState.%1)"_s.arg(isPress ? u"PRESSED"_s : u"RELEASED"_s));
    }

  private:
    static void run(const QString &script) {
        if (!GnomeShell::evaluate(script)) {
            throw std::runtime_error("GNOME Shell refuses: " + script.toStdString());
        }
    }
};

} // namespace

std::unique_ptr<Mouse> Mouse::make(const wayland::Connection &connection) {
    if (connection.virtualPointers() != nullptr) {
        return std::make_unique<VirtualMouse>(connection);
    }
    if (connection.fakeInput() != nullptr) {
        return std::make_unique<KWinMouse>(connection);
    }
    return GnomeShell::isRunning() ? std::make_unique<GnomeMouse>() : nullptr;
}

} // namespace corvane::desktop
