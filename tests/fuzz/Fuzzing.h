#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace corvane::fuzz {

/// The bytes to try, as text.
inline std::string_view textOf(const std::uint8_t *data, std::size_t size) {
    return {reinterpret_cast<const char *>(data), size};
}

/// Reports a finding unless the promise is kept.
inline void require(bool isKept, const char *promise) {
    if (!isKept) {
        std::fprintf(stderr, "Broken: %s\n", promise);
        std::abort();
    }
}

} // namespace corvane::fuzz
