#pragma once

#include "platform/OverlayWindows.h"

#include <QTimer>

#include <functional>

namespace corvane::x11 {

/// Stands in where the server cannot show overlays: shows nothing and hears nothing, but animations
/// take their time and end.
class UnshownOverlay : public platform::NativeOverlay {
  public:
    UnshownOverlay();

    void orderFront() override {}
    void makeKeyAndOrderFront() override {}
    void orderOut() override {}
    void setFrame(const Rectangle & /*frame*/) override {}
    void setDrawing(const Drawing & /*drawing*/) override {}
    void play(const Animation &animation, std::function<void()> completion) override;

  private:
    QTimer end_;
    std::function<void()> completion_;
};

} // namespace corvane::x11
