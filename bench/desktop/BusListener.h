#pragma once

#include "harness/servers/VirtualDesktop.h"

#include <memory>
#include <string>

namespace corvane::bench {

/// Hears the signals of one interface on a desktop's message bus.
class BusListener {
  public:
    /// Returns when it hears.
    BusListener(const desktop::VirtualDesktop &desktop, const std::string &interface);

    /// Signals so far.
    int signalCount() const;

  private:
    std::unique_ptr<desktop::ChildProcess> monitor_;
};

} // namespace corvane::bench
