#pragma once

#include "platform/posix/FileDescriptor.h"
#include "support/Failure.h"

#include <filesystem>
#include <optional>
#include <string_view>

#include <sys/types.h>

namespace corvane::posix {

/// A socket that listens under that path, in the place of whatever was there; it does not block and
/// is not inherited by other programs. Fails when the path is too long or cannot be written.
Outcome<FileDescriptor> listenAt(const std::filesystem::path &path);

/// Whether a socket in that folder has an address: paths of sockets are short.
bool canHoldSocket(const std::filesystem::path &folder);

/// A blocking connection to the socket under that path; nothing where no program listens there.
std::optional<FileDescriptor> connectTo(const std::filesystem::path &path);

/// The user behind the other end; nothing where the system does not say.
std::optional<uid_t> peerOf(const FileDescriptor &connection);

/// Writes as much of the text as fits now: the count of bytes, or -1 and errno. A connection that
/// is closed is an error and no signal.
ssize_t sendSome(const FileDescriptor &connection, std::string_view text);

/// Reading and writing return at once from now on, and other programs do not inherit it.
void makeNonBlocking(const FileDescriptor &descriptor);

} // namespace corvane::posix
