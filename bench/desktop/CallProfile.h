#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace corvane::bench {

/// A profile that callgrind wrote: the instructions of each function with those of what it called.
class CallProfile {
  public:
    explicit CallProfile(const std::filesystem::path &file);

    double total() const { return total_; }
    /// Of the function that is named so without its parameters, such as
    /// "corvane::Ripples::show"; throws where it was never called.
    double of(std::string_view function) const;

  private:
    double total_ = 0;
    std::map<std::string, double> costs_;
};

} // namespace corvane::bench
