#include "platform/wayland/click/PressedButtonRecord.h"

#include "platform/linux/environment/UserDirectories.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/wayland/click/ClickDevice.h"
#include "platform/wayland/connection/Connection.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace corvane::wayland {

namespace {

/// One for each compositor of the session.
std::optional<std::filesystem::path> recordFile() {
    const auto folder = linux::runtimeDirectory();
    const char *display = std::getenv("WAYLAND_DISPLAY"); // NOLINT(concurrency-mt-unsafe)
    if (!folder) {
        return std::nullopt;
    }
    const std::filesystem::path name(display != nullptr ? display : "wayland-0");
    return *folder / "corvane" / ("pressed-button-" + name.filename().string());
}

posix::FileDescriptor openRecord(PressedButtonRecord::Missing missing) {
    const auto path = recordFile();
    if (!path) {
        return posix::FileDescriptor();
    }
    constexpr mode_t onlyForOwner = 0600;
    int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW;
    if (missing == PressedButtonRecord::Missing::create) {
        std::error_code isThere;
        std::filesystem::create_directory(path->parent_path(), isThere);
        flags |= O_CREAT;
    }
    return posix::FileDescriptor(open(path->c_str(), flags, onlyForOwner));
}

void *sharedMemory(PressedButtonRecord::Missing missing, std::size_t length) {
    const posix::FileDescriptor file = openRecord(missing);
    if (!file.isOpen() || ftruncate(file.get(), static_cast<off_t>(length)) != 0) {
        return MAP_FAILED;
    }
    return mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
}

} // namespace

PressedButtonRecord::PressedButtonRecord(Missing missing) {
    if (void *const memory = sharedMemory(missing, sizeof(Count)); memory != MAP_FAILED) {
        count_ = static_cast<Count *>(memory);
    }
}

PressedButtonRecord::~PressedButtonRecord() {
    if (count_ != nullptr) {
        munmap(count_, sizeof(Count));
    }
}

void PressedButtonRecord::addPress() const {
    if (count_ != nullptr) {
        count_->fetch_add(1);
    }
}

void PressedButtonRecord::removePress() const {
    if (count_ != nullptr) {
        count_->fetch_sub(1);
    }
}

bool PressedButtonRecord::hasPress() const { return count_ != nullptr && count_->load() > 0; }

void PressedButtonRecord::clear() const {
    if (count_ != nullptr) {
        count_->store(0);
    }
}

bool releaseRecordedButton() {
    const PressedButtonRecord record(PressedButtonRecord::Missing::ignore);
    if (!record.hasPress()) {
        return false;
    }
    const auto connection = Connection::open();
    if (!connection) {
        return false;
    }
    // Without one, KWin itself handed out the device, and releases its button.
    const auto device = ClickDevice::make(*connection);
    if (device) {
        // All runs press the same button.
        device->release();
        if (!connection->synchronise()) {
            return false;
        }
    }
    record.clear();
    return device != nullptr;
}

} // namespace corvane::wayland
