#pragma once

#include <vector>

namespace corvane::bench {

/// The values measured for one figure.
class Samples {
  public:
    void add(double value) { values_.push_back(value); }
    void add(const Samples &others) {
        values_.insert(values_.end(), others.values_.begin(), others.values_.end());
    }

    /// Each value times `factor`.
    Samples scaledBy(double factor) const;

    bool isEmpty() const { return values_.empty(); }
    double median() const { return percentile(50); }
    /// The least value that so many of a hundred do not exceed. There is at least one value.
    double percentile(double share) const;

  private:
    std::vector<double> values_;
};

} // namespace corvane::bench
