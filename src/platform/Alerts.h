#pragma once

#include "presentation/Alert.h"

namespace corvane::platform {

/// Modal alerts. Main thread.
class Alerts {
  public:
    virtual ~Alerts() = default;

    /// Shows the alert above everything and waits for the answer; the main queue keeps turning.
    virtual AlertResponse runModal(const Alert &alert) = 0;
};

} // namespace corvane::platform
