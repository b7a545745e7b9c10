#pragma once

#include "platform/posix/FileDescriptor.h"
#include "support/Failure.h"

#include <filesystem>
#include <utility>

#include <sys/types.h>

namespace corvane::posix {

/// A socket that listens at a path, in a folder that other users cannot enter. Used by one thread
/// at a time.
class ListeningSocket {
  public:
    static Outcome<ListeningSocket> open(const std::filesystem::path &path);

    /// -1 where it could not be made again.
    int descriptor() const { return socket_.get(); }

    /// Listens anew where the path has gone or leads to a socket without a program behind it;
    /// leaves a path alone that another program listens at. Not after `removePath`.
    void keepPath();

    /// Takes the path away, unless another socket is there.
    void removePath();

  private:
    explicit ListeningSocket(std::filesystem::path path) : path_(std::move(path)) {}

    Outcome<> listen();
    bool isAtPath() const;

    std::filesystem::path path_;
    FileDescriptor socket_;
    /// Identifies the file at the path, so that one made there later is not taken for it.
    dev_t device_ = 0;
    ino_t file_ = 0;
    bool isRemoved_ = false;
};

} // namespace corvane::posix
