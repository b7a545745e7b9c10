#pragma once

#include "platform/OverlayWindows.h"

#include <QTimer>

#include <functional>

namespace corvane::drawing {

/// Stands in where the desktop cannot show overlays: it shows nothing and reports no input, but its
/// animations last as long as others and end.
class UnshownOverlay : public platform::NativeOverlay {
  public:
    explicit UnshownOverlay(const Rectangle &frame);

    void orderFront() override {}
    void makeKeyAndOrderFront() override {}
    void orderOut() override {}
    Rectangle frame() const override { return frame_; }
    void setFrame(const Rectangle &frame) override { frame_ = frame; }
    void setDrawing(const Drawing & /*drawing*/) override {}
    void play(const Animation &animation, std::function<void()> completion) override;

  private:
    Rectangle frame_;
    QTimer end_;
    std::function<void()> completion_;
};

} // namespace corvane::drawing
