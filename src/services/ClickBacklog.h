#pragma once

#include <atomic>

namespace corvane {

/// How many clicks of a run the user interface has not taken note of. A run with a full backlog
/// makes no click: whoever cannot be shown the clicks cannot stop them either. Any thread.
class ClickBacklog {
  public:
    void clickMade() { ++count_; }
    void clickShown() { --count_; }
    bool isFull() const { return count_ >= mostClicks; }

    /// A quarter of a second's clicks at the highest rate.
    static constexpr int mostClicks = 25;

  private:
    std::atomic<int> count_ = 0;
};

} // namespace corvane
