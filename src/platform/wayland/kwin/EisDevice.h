#pragma once

#include "platform/wayland/click/ClickDevice.h"
#include "platform/wayland/eis/EmulatedMouse.h"

#include <memory>
#include <utility>

namespace corvane::wayland::kwin {

/// A mouse that KWin 6 gives to every program that asks for it on the message bus. KWin releases
/// the button when the program has gone. Used by one thread.
class EisDevice : public ClickDevice {
  public:
    /// Null where KWin gives none. Waits for KWin.
    static std::unique_ptr<EisDevice> open();

    ~EisDevice() override;

    EisDevice(const EisDevice &) = delete;
    EisDevice &operator=(const EisDevice &) = delete;

    bool isLost() const override { return !mouse_->isConnected(); }
    bool isReady() override { return mouse_->isReady(); }

    void press() override { mouse_->setButton(true); }
    void release() override { mouse_->setButton(false); }

    /// KWin does so whenever a surface changes.
    void refreshFocus() override {}

  private:
    EisDevice(int cookie, std::unique_ptr<eis::EmulatedMouse> mouse)
        : cookie_(cookie),
          mouse_(std::move(mouse)) {}

    /// KWin's number of the connection.
    const int cookie_;
    const std::unique_ptr<eis::EmulatedMouse> mouse_;
};

} // namespace corvane::wayland::kwin
