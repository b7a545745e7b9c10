#pragma once

#include "Measurement.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace corvane::bench {

/// What is asked for on the command line.
struct Options {
    Extent extent = Extent::whole;
    std::vector<Measurement> chosen;
    /// Where the figures are written as JSON.
    std::filesystem::path file;

    /// Nothing when the arguments make no sense.
    static std::optional<Options> parse(std::span<const char *const> arguments);

    static std::string_view usage();
};

} // namespace corvane::bench
