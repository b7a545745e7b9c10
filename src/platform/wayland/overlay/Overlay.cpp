#include "platform/wayland/overlay/Overlay.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace corvane::wayland {

namespace {

/// A compositor that closes a surface may be about to withdraw the output.
constexpr std::chrono::milliseconds timeToSettle{100};

} // namespace

Overlay::Overlay(const OverlayTools &tools, const BorderlessWindow &window,
                 platform::OverlayEvents events)
    : tools_(tools),
      traits_(window),
      events_(std::move(events)),
      frame_(globalPixels(window.frame)),
      part_(shownPart()),
      content_(*this, tools.animator),
      outputChanges_(tools.connection.whenOutputsChange([this] { restore(); })) {
    restoreTimer_.setSingleShot(true);
    QObject::connect(&restoreTimer_, &QTimer::timeout, [this] { restore(); });
}

Overlay::~Overlay() {
    removeSurfaces([](const Piece &) { return true; });
}

void Overlay::orderFront() {
    if (!isShown_) {
        isShown_ = true;
        addMissingSurfaces();
    }
}

void Overlay::makeKeyAndOrderFront() {
    hasKeyboard_ = traits_.canBecomeKey;
    orderFront();
}

void Overlay::orderOut() {
    isShown_ = false;
    hasKeyboard_ = false;
    removeSurfaces([](const Piece &) { return true; });
    tools_.connection.flush();
}

Rectangle Overlay::frame() const { return tools_.screens.fromGlobal(drawing::rectangleOf(frame_)); }

void Overlay::setFrame(const Rectangle &frame) {
    const QSize former = frame_.size();
    const QRect formerPart = part_;
    frame_ = globalPixels(frame);
    part_ = shownPart();
    if (!isShown_) {
        return;
    }
    for (const Piece &piece : surfaces_) {
        piece.surface->place(shownFrame());
    }
    addMissingSurfaces();
    if (frame_.size() != former || part_ != formerPart) {
        content_.show(scene());
    }
    // A zone that follows another program's window is sent within this event-loop iteration.
    tools_.connection.flush();
}

void Overlay::setDrawing(const Drawing &drawing) {
    drawing_ = drawing;
    if (isShown_) {
        content_.showSoon(scene());
    }
}

void Overlay::play(const Animation &animation, std::function<void()> completion) {
    content_.play(scene(), animation, std::move(completion));
}

void Overlay::paint(const drawing::OverlayScene &scene) {
    for (const Piece &piece : surfaces_) {
        piece.surface->paint(scene);
    }
}

drawing::OverlayPlayback::Show Overlay::frames(const drawing::OverlayScene &scene,
                                               const Animation &animation) {
    return [this, frames = tools_.frames.of(scene, animation)](std::size_t index) {
        for (const Piece &piece : surfaces_) {
            piece.surface->show(frames->image(index));
        }
    };
}

void Overlay::restore() {
    part_ = shownPart();
    const auto outputs = tools_.connection.outputs();
    removeSurfaces([&outputs](const Piece &piece) {
        return piece.isClosed || std::ranges::none_of(outputs, [&piece](const Output *output) {
                   return piece.isOn(*output);
               });
    });
    if (isShown_) {
        addMissingSurfaces();
    }
}

void Overlay::keyDown(platform::Key key) {
    // The handler may destroy the overlay.
    if (const auto handler = events_.keyDown) {
        handler(key);
    }
}

void Overlay::report(const std::function<void(Point)> &handler, Point point) const {
    if (const auto kept = handler) {
        const Rectangle shown = shownFrame();
        kept(tools_.screens.fromGlobal(Point{shown.x + point.x, shown.y + point.y}));
    }
}

QRect Overlay::globalPixels(const Rectangle &frame) const {
    return drawing::pixelsOf(tools_.screens.toGlobal(frame));
}

QRect Overlay::shownPart() const {
    QRect desktop;
    for (const Output *output : tools_.connection.outputs()) {
        desktop = desktop.united(drawing::pixelsOf(*output->frame()));
    }
    return drawing::shownPart(frame_, desktop);
}

Rectangle Overlay::shownFrame() const {
    return drawing::rectangleOf(part_.translated(frame_.topLeft()));
}

void Overlay::addMissingSurfaces() {
    const QRect shown = drawing::pixelsOf(shownFrame());
    for (const Output *output : tools_.connection.outputs()) {
        const bool isThere = std::ranges::any_of(
            surfaces_, [output](const Piece &piece) { return piece.isOn(*output); });
        if (isThere || !shown.intersects(drawing::pixelsOf(*output->frame()))) {
            continue;
        }
        auto surface = std::make_unique<OverlaySurface>(
            tools_.connection, *output,
            LayerSurface::Traits{.takesPointer = !traits_.ignoresMouseEvents,
                                 .takesKeyboard = hasKeyboard_},
            tools_.painter, [this, name = output->name()] { close(name); });
        surface->place(shownFrame());
        tools_.input.add(surface->get(), *this);
        surfaces_.push_back({output->name(), *output->frame(), std::move(surface)});
    }
    content_.show(scene());
}

void Overlay::removeSurfaces(const std::function<bool(const Piece &piece)> &condition) {
    std::erase_if(surfaces_, [&](const Piece &piece) {
        const bool isRemoved = condition(piece);
        if (isRemoved) {
            tools_.input.remove(piece.surface->get());
        }
        return isRemoved;
    });
}

/// The surface is still in use while it reports that it was closed.
void Overlay::close(std::uint32_t output) {
    for (Piece &piece : surfaces_) {
        piece.isClosed = piece.isClosed || piece.output == output;
    }
    restoreTimer_.start(timeToSettle);
}

drawing::OverlayScene Overlay::scene() const {
    return {.size = frame_.size(),
            .part = part_,
            .background = traits_.background,
            .drawing = drawing_};
}

} // namespace corvane::wayland
