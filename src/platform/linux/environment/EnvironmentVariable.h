#pragma once

#include <cstdlib>
#include <string>

namespace corvane::linux {

/// The value of an environment variable; empty where it is not set. Not while another thread
/// changes the environment.
inline std::string environmentVariable(const char *name) {
    const char *value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value != nullptr ? value : "";
}

} // namespace corvane::linux
