#pragma once

#include "platform/posix/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace corvane::linux {

/// Turns the signals that request a program to end (TERM, INT, HUP) into a call on the main thread,
/// and makes plain failures of writing to a closed pipe and of writing more than the user's files
/// may hold. One at a time; needs Qt's event loop.
class UnixSignals {
  public:
    explicit UnixSignals(std::function<void()> endRequested);
    ~UnixSignals();

    UnixSignals(const UnixSignals &) = delete;
    UnixSignals &operator=(const UnixSignals &) = delete;

  private:
    void drain() const;

    const std::function<void()> endRequested_;
    posix::FileDescriptor readEnd_;
    posix::FileDescriptor writeEnd_;
    std::unique_ptr<QSocketNotifier> arrived_;
};

} // namespace corvane::linux
