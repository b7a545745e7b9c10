#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace corvane::contract {

/// Another value for an environment variable, or none, until destroyed.
class EnvironmentVariable {
  public:
    EnvironmentVariable(const char *name, const std::optional<std::string> &value) : name_(name) {
        if (const char *before = std::getenv(name)) { // NOLINT(concurrency-mt-unsafe)
            before_ = before;
        }
        set(value);
    }
    ~EnvironmentVariable() { set(before_); }

    EnvironmentVariable(const EnvironmentVariable &) = delete;
    EnvironmentVariable &operator=(const EnvironmentVariable &) = delete;

  private:
    void set(const std::optional<std::string> &value) const {
        if (value) {
            setenv(name_, value->c_str(), 1); // NOLINT(concurrency-mt-unsafe)
        } else {
            unsetenv(name_); // NOLINT(concurrency-mt-unsafe)
        }
    }

    const char *name_;
    std::optional<std::string> before_;
};

} // namespace corvane::contract
