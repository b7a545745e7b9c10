#include "platform/wayland/connection/SharedImage.h"

#include "platform/posix/FileDescriptor.h"

#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace corvane::wayland {

namespace {

constexpr int bytesPerPixel = 4;

/// Closed where there is none to be had.
posix::FileDescriptor memoryFile(std::size_t length) {
    posix::FileDescriptor file(memfd_create("corvane-image", MFD_CLOEXEC));
    return file.isOpen() && ftruncate(file.get(), static_cast<off_t>(length)) == 0
               ? std::move(file)
               : posix::FileDescriptor();
}

} // namespace

SharedImage::SharedImage(wl_shm *sharedMemory, QSize size) {
    const int stride = size.width() * bytesPerPixel;
    length_ = static_cast<std::size_t>(stride) * static_cast<std::size_t>(size.height());
    const posix::FileDescriptor file = memoryFile(length_);
    if (!file.isOpen()) {
        return;
    }
    void *const memory = mmap(nullptr, length_, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
    if (memory == MAP_FAILED) {
        return;
    }
    memory_ = memory;
    image_ = QImage(static_cast<uchar *>(memory), size.width(), size.height(), stride,
                    QImage::Format_ARGB32_Premultiplied);
    const Handle<wl_shm_pool> pool(
        wl_shm_create_pool(sharedMemory, file.get(), static_cast<std::int32_t>(length_)));
    buffer_.reset(wl_shm_pool_create_buffer(pool.get(), 0, size.width(), size.height(), stride,
                                            WL_SHM_FORMAT_ARGB8888));
    static constexpr wl_buffer_listener listener{.release = [](void *data, wl_buffer *) {
        static_cast<SharedImage *>(data)->isInUse_ = false;
    }};
    wl_buffer_add_listener(buffer_.get(), &listener, this);
}

SharedImage::~SharedImage() {
    if (memory_ != nullptr) {
        munmap(memory_, length_);
    }
}

} // namespace corvane::wayland
