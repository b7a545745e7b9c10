#include "platform/wayland/portal/RestoreToken.h"

#include "platform/posix/FileDescriptor.h"
#include "support/Log.h"

#include <array>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace corvane::wayland::portal {

std::string RestoreToken::read() const {
    const posix::FileDescriptor file(open(file_.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    std::array<char, 4096> bytes{};
    const ssize_t length = file.isOpen() ? ::read(file.get(), bytes.data(), bytes.size()) : 0;
    return {bytes.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
}

void RestoreToken::write(const std::string &token) const {
    constexpr mode_t ownerOnly = 0600;
    std::error_code ignored;
    std::filesystem::create_directories(file_.parent_path(), ignored);
    posix::FileDescriptor file(
        open(file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, ownerOnly));
    const bool isWritten = file.isOpen() && ::write(file.get(), token.data(), token.size()) ==
                                                static_cast<ssize_t>(token.size());
    if (!isWritten || !file.close()) {
        log("The desktop's permission could not be kept in " + file_.string());
    }
}

} // namespace corvane::wayland::portal
