#include "Options.h"

#include <algorithm>

namespace corvane::bench {

std::optional<Options> Options::parse(std::span<const char *const> arguments) {
    Options options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string_view argument = arguments[index];
        const bool hasValue = index + 1 < arguments.size();
        if (argument == "--quick") {
            options.extent = Extent::quick;
        } else if (argument == "--only" && hasValue) {
            const auto found =
                std::ranges::find(measurements(), arguments[++index], &Measurement::name);
            if (found == measurements().end()) {
                return std::nullopt;
            }
            options.chosen.push_back(*found);
        } else if (argument == "--json" && hasValue) {
            options.file = arguments[++index];
        } else {
            return std::nullopt;
        }
    }
    if (options.chosen.empty()) {
        options.chosen.assign(measurements().begin(), measurements().end());
    }
    return options.file.empty() ? std::nullopt : std::optional(options);
}

std::string_view Options::usage() {
    return "Usage: corvane_bench [--quick] [--only NAME]... --json FILE\n";
}

} // namespace corvane::bench
