#include "platform/wayland/overlay/Overlay.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::wayland {

namespace {

/// Nobody sees more images than this, however often the mouse reports.
constexpr std::chrono::milliseconds shortestRepaintInterval{8};

/// A compositor that closes a surface may be about to withdraw the output.
constexpr std::chrono::milliseconds timeToSettle{100};

/// The nearest pixel edge, of those a surface can be placed at.
int pixelEdge(double position) {
    constexpr double farthest = 1e6;
    const double within = position > -farthest ? std::min(position, farthest) : -farthest;
    return static_cast<int>(std::lround(within));
}

Rectangle rectangleOf(const QRect &rect) {
    return {double(rect.x()), double(rect.y()), double(rect.width()), double(rect.height())};
}

QRect rectOf(const Rectangle &rectangle) {
    const int left = pixelEdge(rectangle.x);
    const int top = pixelEdge(rectangle.y);
    // A surface without an area is a protocol error.
    return {left, top, std::max(1, pixelEdge(rectangle.maxX()) - left),
            std::max(1, pixelEdge(rectangle.maxY()) - top)};
}

} // namespace

Overlay::Overlay(const OverlayTools &tools, const BorderlessWindow &window,
                 platform::OverlayEvents events)
    : tools_(tools),
      traits_(window),
      events_(std::move(events)),
      frame_(pixelsOf(window.frame)),
      part_(shownPart()),
      outputChanges_(tools.connection.whenOutputsChange([this] { restore(); })) {
    repaintTimer_.setSingleShot(true);
    QObject::connect(&repaintTimer_, &QTimer::timeout, [this] { showNow(); });
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

Rectangle Overlay::frame() const { return tools_.screens.fromGlobal(rectangleOf(frame_)); }

void Overlay::setFrame(const Rectangle &frame) {
    const QSize former = frame_.size();
    const QRect formerPart = part_;
    frame_ = pixelsOf(frame);
    part_ = shownPart();
    if (!isShown_) {
        return;
    }
    for (const Piece &piece : surfaces_) {
        piece.surface->place(shownFrame());
    }
    addMissingSurfaces();
    if (frame_.size() != former || part_ != formerPart) {
        showNow();
    }
    // What follows another program's window must not wait for the end of the turn.
    tools_.connection.flush();
}

void Overlay::setDrawing(const Drawing &drawing) {
    drawing_ = drawing;
    showSoon();
}

void Overlay::play(const Animation &animation, std::function<void()> completion) {
    playback_ = tools_.animator.play(
        scene(), animation,
        [this](const std::shared_ptr<const SharedImage> &image) {
            for (const Piece &piece : surfaces_) {
                piece.surface->show(image);
            }
        },
        std::move(completion));
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

QRect Overlay::pixelsOf(const Rectangle &frame) const {
    return rectOf(tools_.screens.toGlobal(frame));
}

/// All of it, unless it is larger than the desktop.
QRect Overlay::shownPart() const {
    QRect desktop;
    for (const Output *output : tools_.connection.outputs()) {
        desktop = desktop.united(rectOf(*output->frame()));
    }
    const QRect whole(QPoint(), frame_.size());
    if (whole.width() <= desktop.width() && whole.height() <= desktop.height()) {
        return whole;
    }
    const QRect part = whole.intersected(desktop.translated(-frame_.topLeft()));
    return part.isEmpty() ? QRect(0, 0, 1, 1) : part;
}

Rectangle Overlay::shownFrame() const { return rectangleOf(part_.translated(frame_.topLeft())); }

void Overlay::addMissingSurfaces() {
    const QRect shown = rectOf(shownFrame());
    for (const Output *output : tools_.connection.outputs()) {
        const bool isThere = std::ranges::any_of(
            surfaces_, [output](const Piece &piece) { return piece.isOn(*output); });
        if (isThere || !shown.intersects(rectOf(*output->frame()))) {
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
    showNow();
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

void Overlay::showSoon() {
    if (!isShown_ || repaintTimer_.isActive()) {
        return;
    }
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastRepaint_);
    if (elapsed >= shortestRepaintInterval) {
        showNow();
    } else {
        repaintTimer_.start(shortestRepaintInterval - elapsed);
    }
}

void Overlay::showNow() {
    lastRepaint_ = Clock::now();
    if (playback_) {
        playback_->changeTo(scene());
        return;
    }
    const drawing::OverlayScene shown = scene();
    for (const Piece &piece : surfaces_) {
        piece.surface->paint(shown);
    }
}

drawing::OverlayScene Overlay::scene() const {
    return {.size = frame_.size(),
            .part = part_,
            .background = traits_.background,
            .drawing = drawing_};
}

} // namespace corvane::wayland
