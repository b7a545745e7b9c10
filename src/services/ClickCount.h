#pragma once

#include <cstdint>
#include <cstdlib>
#include <limits>

namespace corvane {

/// Counts the clicks of a run. A count that no longer fits stops the program.
class ClickCount {
  public:
    explicit ClickCount(std::int64_t value = 0) : value_(value) {}

    std::int64_t value() const { return value_; }

    void addOne() {
        if (value_ == std::numeric_limits<std::int64_t>::max()) {
            std::abort();
        }
        ++value_;
    }

  private:
    std::int64_t value_;
};

} // namespace corvane
