#pragma once

#include <string>

namespace corvane::bench {

/// What the figures were measured on, and how busy it was with other work.
class Machine {
  public:
    /// Looks at the machine as it is before the measuring.
    static Machine present();

    /// Such as "AMD EPYC, 2 cores, Linux 6.1.0; load before: 0.02; 2026-11-21 12:00 UTC".
    const std::string &text() const { return text_; }

  private:
    std::string text_;
};

} // namespace corvane::bench
