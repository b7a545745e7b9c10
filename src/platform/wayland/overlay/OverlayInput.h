#pragma once

#include "platform/wayland/connection/Connection.h"
#include "platform/wayland/connection/Seat.h"
#include "platform/wayland/overlay/KeyMap.h"
#include "presentation/BorderlessWindow.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <map>

namespace corvane::wayland {

/// What receives the user's input on its surfaces; points in the surface's own coordinates. Each
/// call may destroy the receiver.
class InputReceiver {
  public:
    virtual void mouseDown(Point point) = 0;
    virtual void mouseDragged(Point point) = 0;
    virtual void mouseUp(Point point) = 0;
    virtual void keyDown(platform::Key key) = 0;
    virtual Cursor cursor() const = 0;

  protected:
    ~InputReceiver() = default;
};

/// Brings what the user does with pointer and keyboard to the overlays beneath. Main thread.
class OverlayInput {
  public:
    /// The connection outlives the input.
    explicit OverlayInput(const Connection &connection);

    void add(wl_surface *surface, InputReceiver &receiver) { receivers_[surface] = &receiver; }
    void remove(wl_surface *surface) { receivers_.erase(surface); }

  private:
    InputReceiver *receiverOf(wl_surface *surface) const;
    void report(wl_surface *surface, std::function<void(InputReceiver &)> event);
    void showCursor(Cursor cursor, std::uint32_t serial);
    void changeButton(std::uint32_t button, bool isPress);

    const Connection &connection_;
    std::map<wl_surface *, InputReceiver *> receivers_;
    /// Ends the reports under way.
    QObject reports_;
    KeyMap keyMap_;
    Seat seat_;
    wl_surface *beneathPointer_ = nullptr;
    wl_surface *withKeyboard_ = nullptr;
    Point point_{};
    bool isDragging_ = false;
    Handle<wl_cursor_theme> cursors_;
    Handle<wl_surface> cursorSurface_;
};

} // namespace corvane::wayland
