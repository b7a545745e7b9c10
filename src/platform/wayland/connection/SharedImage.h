#pragma once

#include "platform/wayland/connection/Handle.h"

#include <QImage>
#include <QSize>

namespace corvane::wayland {

/// An image in memory shared with the compositor, premultiplied and at first transparent.
class SharedImage {
  public:
    /// Without memory to be had the image is null.
    SharedImage(wl_shm *sharedMemory, QSize size);
    ~SharedImage();

    SharedImage(const SharedImage &) = delete;
    SharedImage &operator=(const SharedImage &) = delete;

    /// To be painted on while the compositor does not read it.
    QImage &image() { return image_; }
    QSize size() const { return image_.size(); }

    /// What surfaces attach; null where there is no image.
    wl_buffer *buffer() const { return buffer_.get(); }

    /// Whether a surface that attached it may still be shown with it.
    bool isInUse() const { return isInUse_; }
    void markInUse() { isInUse_ = true; }

  private:
    void *memory_ = nullptr;
    std::size_t length_ = 0;
    QImage image_;
    Handle<wl_buffer> buffer_;
    bool isInUse_ = false;
};

} // namespace corvane::wayland
