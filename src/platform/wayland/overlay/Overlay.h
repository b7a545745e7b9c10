#pragma once

#include "platform/OverlayWindows.h"
#include "platform/drawing/FrameImages.h"
#include "platform/drawing/OverlayContent.h"
#include "platform/wayland/overlay/OverlayInput.h"
#include "platform/wayland/overlay/OverlaySurface.h"
#include "platform/wayland/screens/Screens.h"

#include <QRect>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane::wayland {

/// What overlays share; outlives them.
struct OverlayTools {
    Connection &connection;
    const Screens &screens;
    const drawing::OverlayPainter &painter;
    OverlayInput &input;
    drawing::OverlayAnimator &animator;
    drawing::FrameImages<SharedImage> &frames;
};

/// A window over all others: a surface of the layer shell on each output that it touches.
class Overlay final : public platform::NativeOverlay,
                      private InputReceiver,
                      private drawing::OverlayCanvas {
  public:
    Overlay(const OverlayTools &tools, const BorderlessWindow &window,
            platform::OverlayEvents events);
    ~Overlay();

    Overlay(const Overlay &) = delete;
    Overlay &operator=(const Overlay &) = delete;

    void orderFront() override;
    void makeKeyAndOrderFront() override;
    void orderOut() override;
    Rectangle frame() const override;
    void setFrame(const Rectangle &frame) override;
    void setDrawing(const Drawing &drawing) override;
    void play(const Animation &animation, std::function<void()> completion) override;

  private:
    /// The surface on one output.
    struct Piece {
        std::uint32_t output = 0;
        Rectangle outputFrame;
        std::unique_ptr<OverlaySurface> surface;
        bool isClosed = false;

        bool isOn(const Output &other) const {
            return output == other.name() && outputFrame == other.frame();
        }
    };

    void mouseDown(Point point) override { report(events_.mouseDown, point); }
    void mouseDragged(Point point) override { report(events_.mouseDragged, point); }
    void mouseUp(Point point) override { report(events_.mouseUp, point); }
    void keyDown(platform::Key key) override;
    Cursor cursor() const override { return traits_.cursor; }
    void paint(const drawing::OverlayScene &scene) override;
    drawing::OverlayPlayback::Show frames(const drawing::OverlayScene &scene,
                                          const Animation &animation) override;

    void report(const std::function<void(Point)> &handler, Point point) const;
    QRect globalPixels(const Rectangle &frame) const;
    QRect shownPart() const;
    Rectangle shownFrame() const;
    /// Goes from the outputs that have gone or changed, and shows itself on the new ones.
    void restore();
    void addMissingSurfaces();
    /// Removes those that satisfy the condition.
    void removeSurfaces(const std::function<bool(const Piece &piece)> &condition);
    void close(std::uint32_t output);
    drawing::OverlayScene scene() const;

    OverlayTools tools_;
    const BorderlessWindow traits_;
    const platform::OverlayEvents events_;
    /// In global display space.
    QRect frame_;
    /// What is shown of it, from its top left corner.
    QRect part_;
    Drawing drawing_;
    bool isShown_ = false;
    bool hasKeyboard_ = false;
    std::vector<Piece> surfaces_;
    drawing::OverlayContent content_;
    /// For surfaces that the compositor has closed.
    QTimer restoreTimer_;
    const Connection::Subscription outputChanges_;
};

} // namespace corvane::wayland
