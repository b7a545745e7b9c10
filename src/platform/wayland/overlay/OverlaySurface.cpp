#include "platform/wayland/overlay/OverlaySurface.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace corvane::wayland {

using drawing::OverlayPainter;
using drawing::OverlayScene;

OverlaySurface::OverlaySurface(const Connection &connection, const Output &output,
                               const LayerSurface::Traits &traits, const OverlayPainter &painter,
                               std::function<void()> closed)
    : connection_(connection),
      painter_(painter),
      layer_(
          connection, output, traits,
          [this] {
              isConfigured_ = true;
              update();
          },
          std::move(closed)) {}

void OverlaySurface::place(const Rectangle &frame) {
    layer_.place(frame);
    wl_surface_commit(get());
}

void OverlaySurface::paint(const OverlayScene &scene) {
    scene_ = scene;
    image_.reset();
    update();
}

void OverlaySurface::show(std::shared_ptr<const SharedImage> image) {
    image_ = std::move(image);
    update();
}

void OverlaySurface::update() {
    if (!isConfigured_) {
        return;
    }
    if (image_) {
        shown_.reset();
        attach(*image_, QRect(QPoint(), image_->size()));
    } else if (scene_ && scene_ != shown_) {
        const Canvas &canvas = freeCanvas(*scene_);
        canvas.image->markInUse();
        attach(*canvas.image, shown_ && shown_->differsInDrawingOnly(*scene_)
                                  ? OverlayPainter::difference(*shown_, *scene_)
                                  : QRegion(QRect(QPoint(), scene_->part.size())));
        shown_ = scene_;
    }
}

OverlaySurface::Canvas &OverlaySurface::freeCanvas(const OverlayScene &scene) {
    std::erase_if(canvases_, [&](const Canvas &canvas) {
        return !canvas.image->isInUse() && !canvas.scene.differsInDrawingOnly(scene);
    });
    const auto usable = std::ranges::find_if(canvases_, [&](const Canvas &canvas) {
        return !canvas.image->isInUse() && canvas.scene.differsInDrawingOnly(scene);
    });
    const bool isNew = usable == canvases_.end();
    Canvas &canvas =
        isNew ? canvases_.emplace_back(
                    std::make_unique<SharedImage>(connection_.sharedMemory(), scene.part.size()),
                    scene)
              : *usable;
    const QRegion stale = isNew ? QRegion(QRect(QPoint(), scene.part.size()))
                                : OverlayPainter::difference(canvas.scene, scene);
    canvas.scene = scene;
    QPainter painter(&canvas.image->image());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect &piece : stale) {
        painter.drawImage(piece.topLeft(),
                          painter_.paint(scene, piece.translated(scene.part.topLeft())));
    }
    return canvas;
}

void OverlaySurface::attach(const SharedImage &image, const QRegion &changed) {
    wl_surface_attach(get(), image.buffer(), 0, 0);
    for (const QRect &piece : changed) {
        wl_surface_damage_buffer(get(), piece.x(), piece.y(), piece.width(), piece.height());
    }
    wl_surface_commit(get());
}

} // namespace corvane::wayland
