#include "platform/posix/OpenFile.h"

#include <array>
#include <cerrno>
#include <utility>

namespace corvane::posix {

namespace {

/// Makes the call again for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace

OpenFile::OpenFile(FileCalls &calls, const std::filesystem::path &path, int flags, mode_t mode)
    : calls_(calls),
      descriptor_(uninterrupted([&] { return calls.open(path.c_str(), flags, mode); })) {}

std::optional<struct stat> OpenFile::status() const {
    struct stat status{};
    return calls_.statusOf(descriptor_, status) == 0 ? std::optional(status) : std::nullopt;
}

bool OpenFile::changeMode(mode_t mode) const { return calls_.changeMode(descriptor_, mode) == 0; }

std::optional<std::string> OpenFile::read() const {
    std::array<char, 65536> buffer{};
    const ssize_t count =
        uninterrupted([&] { return calls_.read(descriptor_, buffer.data(), buffer.size()); });
    if (count < 0) {
        return std::nullopt;
    }
    return std::string(buffer.data(), static_cast<std::size_t>(count));
}

bool OpenFile::write(std::string_view content) const {
    while (!content.empty()) {
        const ssize_t written = uninterrupted(
            [&] { return calls_.write(descriptor_, content.data(), content.size()); });
        if (written < 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool OpenFile::synchronise() const {
    return uninterrupted([this] { return calls_.synchronise(descriptor_); }) == 0;
}

/// Never tried again: after an interruption too, the descriptor is closed.
bool OpenFile::close() {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 || calls_.close(descriptor) == 0 || errno == EINTR;
}

} // namespace corvane::posix
