#pragma once

#include "Stage.h"

#include <string>
#include <vector>

namespace corvane::desktop {

/// The clicks of the left button the other program got, in figures.
class ClickReport {
  public:
    explicit ClickReport(const std::vector<ButtonChange> &changes);

    int presses() const { return static_cast<int>(pressed_.size()); }
    int releases() const { return releases_; }

    /// One line: how many, how many a second, how long the button was held.
    std::string text() const;

  private:
    double clicksPerSecond() const;

    /// When the button went down, and for how long; milliseconds.
    std::vector<double> pressed_;
    std::vector<double> holds_;
    int releases_ = 0;
};

} // namespace corvane::desktop
