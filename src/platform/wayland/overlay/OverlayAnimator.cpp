#include "platform/wayland/overlay/OverlayAnimator.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace corvane::wayland {

SharedFrames::SharedFrames(wl_shm *sharedMemory, drawing::AnimationFrames frames)
    : sharedMemory_(sharedMemory),
      frames_(std::move(frames)),
      images_(frames_.count()) {}

std::shared_ptr<const SharedImage> SharedFrames::image(std::size_t index) {
    auto &image = images_.at(index);
    if (!image) {
        auto painted = std::make_shared<SharedImage>(sharedMemory_, frames_.scene().part.size());
        QPainter(&painted->image()).drawImage(QPoint(), frames_.paint(index));
        image = std::move(painted);
    }
    return image;
}

OverlayPlayback::OverlayPlayback(OverlayAnimator &animator, std::shared_ptr<SharedFrames> frames,
                                 Show show, std::function<void()> completion)
    : animator_(animator),
      frames_(std::move(frames)),
      show_(std::move(show)),
      completion_(std::move(completion)) {
    animator_.add(*this);
    this->show(0);
}

OverlayPlayback::~OverlayPlayback() { animator_.remove(*this); }

void OverlayPlayback::changeTo(const drawing::OverlayScene &scene) {
    frames_ = animator_.frames(scene, frames_->frames().animation());
    show(index_);
}

bool OverlayPlayback::advance() {
    const auto elapsed = Clock::now() - start_;
    const std::size_t index = frames_->frames().indexAt(elapsed);
    if (index != index_) {
        show(index);
    }
    return !frames_->frames().isOverAt(elapsed);
}

void OverlayPlayback::show(std::size_t index) {
    index_ = index;
    show_(frames_->image(index));
}

void OverlayPlayback::complete() {
    if (const auto completion = std::exchange(completion_, {})) {
        completion();
    }
}

OverlayAnimator::OverlayAnimator(const Connection &connection,
                                 const drawing::OverlayPainter &painter)
    : connection_(connection),
      painter_(painter) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(
        std::chrono::round<std::chrono::milliseconds>(drawing::AnimationFrames::interval));
    QObject::connect(&timer_, &QTimer::timeout, [this] { advance(); });
}

std::unique_ptr<OverlayPlayback> OverlayAnimator::play(const drawing::OverlayScene &scene,
                                                       const Animation &animation,
                                                       OverlayPlayback::Show show,
                                                       std::function<void()> completion) {
    return std::make_unique<OverlayPlayback>(*this, frames(scene, animation), std::move(show),
                                             std::move(completion));
}

std::shared_ptr<SharedFrames> OverlayAnimator::frames(const drawing::OverlayScene &scene,
                                                      const Animation &animation) {
    const auto known = std::ranges::find_if(
        known_, [&](const auto &each) { return each->frames().match(scene, animation); });
    if (known != known_.end()) {
        return *known;
    }
    constexpr std::size_t mostKept = 4;
    if (known_.size() == mostKept) {
        known_.erase(known_.begin());
    }
    known_.push_back(std::make_shared<SharedFrames>(
        connection_.sharedMemory(), drawing::AnimationFrames(painter_, scene, animation)));
    return known_.back();
}

void OverlayAnimator::add(OverlayPlayback &playback) {
    running_.push_back(&playback);
    timer_.start();
}

void OverlayAnimator::remove(OverlayPlayback &playback) {
    std::erase(running_, &playback);
    std::erase(over_, &playback);
}

/// A completion may destroy any playback or start another.
void OverlayAnimator::advance() {
    const auto firstOver = std::ranges::stable_partition(
        running_, [](OverlayPlayback *playback) { return playback->advance(); });
    over_.insert(over_.end(), firstOver.begin(), firstOver.end());
    running_.erase(firstOver.begin(), firstOver.end());
    while (!over_.empty()) {
        OverlayPlayback &playback = *over_.front();
        over_.erase(over_.begin());
        playback.complete();
    }
    if (running_.empty()) {
        timer_.stop();
    }
}

} // namespace corvane::wayland
